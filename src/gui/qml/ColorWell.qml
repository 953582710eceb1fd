import QtQuick
import QtQuick.Controls
import Tidewell

// A small well of the tint colour: opens the colour dialog; each colour picked there is
// announced as "#RRGGBB" text.
AbstractButton {
    id: well

    property string hex
    signal picked(string hex)

    implicitWidth: 38
    implicitHeight: 20
    focusPolicy: Qt.StrongFocus
    onClicked: picker.open()
    Accessible.name: "Tint colour"

    SettingsStyle {
        id: style
    }
    ColorPicker {
        id: picker
        hex: well.hex
        onPicked: hex => well.picked(hex)
    }
    background: Rectangle {
        radius: 4
        color: "transparent"
        border.width: well.visualFocus ? 2 : 1
        border.color: well.visualFocus ? style.accent : style.secondary

        Rectangle {
            anchors.fill: parent
            anchors.margins: 3
            radius: 2
            color: picker.color
        }
    }
}
