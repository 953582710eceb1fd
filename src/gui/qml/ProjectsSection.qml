import QtQuick
import QtQuick.Controls
import QtQuick.Layouts

// The projects, one card each, or an invitation to add one.
ColumnLayout {
    Layout.fillWidth: true
    spacing: 10

    SettingsStyle {
        id: style
    }
    Label {
        text: "Projects"
        font.pointSize: style.points(15)
        font.weight: Font.DemiBold
        color: style.primary
    }
    Repeater {
        model: projects
        delegate: ItemSettingsRow {}
    }
    EmptyProjects {
        visible: projects.count === 0
    }
}
