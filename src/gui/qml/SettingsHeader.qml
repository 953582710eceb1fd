import QtQuick
import QtQuick.Controls
import QtQuick.Layouts

// The window's title and subtitle, and the button that adds a folder.
RowLayout {
    Layout.fillWidth: true
    spacing: 12

    SettingsStyle {
        id: style
    }
    ColumnLayout {
        Layout.fillWidth: true
        spacing: 2

        Label {
            text: "Tidewell"
            font.pointSize: style.points(20)
            font.weight: Font.DemiBold
            color: style.primary
        }
        Label {
            Layout.fillWidth: true
            text: "Projects shown beneath your MacBook notch"
            font.pointSize: style.points(12)
            color: style.secondary
            elide: Text.ElideRight
        }
    }
    AddFolderButton {}
}
