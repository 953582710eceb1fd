import QtQuick
import QtQuick.Layouts

// The rule between two rows of a card.
Rectangle {
    property real leadingInset: 0

    Layout.fillWidth: true
    Layout.leftMargin: leadingInset
    implicitHeight: 1
    color: style.rule

    SettingsStyle {
        id: style
    }
}
