import QtQuick
import QtQuick.Controls
import QtQuick.Layouts

// A label 96 wide, then the detail's controls.
RowLayout {
    property string label
    default property alias controls: trailing.data

    Layout.fillWidth: true
    spacing: 8

    SettingsStyle {
        id: style
    }
    Label {
        Layout.preferredWidth: 96
        text: parent.label
        font.pointSize: style.points(11.5)
        color: style.secondary
    }
    RowLayout {
        id: trailing
        Layout.fillWidth: true
        spacing: 8
    }
}
