import QtQuick
import QtQuick.Controls

// A text field without a frame of its own, outlined while it has the keyboard.
TextField {
    id: field

    leftPadding: 6
    rightPadding: 6
    topPadding: 3
    bottomPadding: 3
    color: style.primary
    selectByMouse: true

    SettingsStyle {
        id: style
    }
    background: Rectangle {
        radius: 5
        color: field.activeFocus ? style.cardFill : "transparent"
        border.width: field.activeFocus ? 2 : 0
        border.color: style.accent
    }
}
