import QtQuick
import QtQuick.Controls

// A project's icon at 44 with a pencil over its corner: chooses a custom icon.
AbstractButton {
    id: button

    property color tint
    property string initials
    property url imageSource

    implicitWidth: 44
    implicitHeight: 44
    padding: 0
    focusPolicy: Qt.StrongFocus

    SettingsStyle {
        id: style
    }
    contentItem: Item {
        ProjectIconView {
            size: 44
            tint: button.tint
            initials: button.initials
            imageSource: button.imageSource
        }
        Rectangle {
            x: 44 - width + 3
            y: 44 - height + 3
            width: 18
            height: 18
            radius: 9
            color: style.background

            SymbolImage {
                anchors.centerIn: parent
                name: "pencil.circle.fill"
                size: 16
                color: button.hovered || button.activeFocus ? style.accent : style.primary
            }
        }
    }
    background: Rectangle {
        anchors.fill: parent
        anchors.margins: -3
        radius: 13
        color: "transparent"
        border.width: 2
        border.color: button.visualFocus ? style.accent : "transparent"
    }

    ToolTip.text: "Choose a custom icon"
    ToolTip.visible: hovered
    ToolTip.delay: Qt.styleHints.mousePressAndHoldInterval
    Accessible.name: "Choose a custom icon"
}
