import QtQuick
import QtQuick.Controls
import QtQuick.Layouts

// Shown while there are no projects: how to add one.
ColumnLayout {
    Layout.fillWidth: true
    Layout.topMargin: 12
    spacing: 6

    SettingsStyle {
        id: style
    }
    SymbolImage {
        Layout.alignment: Qt.AlignHCenter
        name: "folder.badge.plus"
        size: 26
        color: style.secondary
    }
    Label {
        Layout.alignment: Qt.AlignHCenter
        text: "No projects yet"
        font.pointSize: style.points(13)
        font.weight: Font.DemiBold
        color: style.primary
    }
    Label {
        Layout.fillWidth: true
        text: "Add a folder here, drag one in, or run tide add . in Terminal."
        font.pointSize: style.points(11.5)
        color: style.secondary
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }
    AddFolderButton {
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: 4
    }
}
