import QtQuick
import QtQuick.Layouts

// A group of settings rows on a softly filled, rounded card.
Rectangle {
    id: card

    default property alias content: rows.data

    Layout.fillWidth: true
    implicitHeight: rows.implicitHeight
    radius: 10
    color: style.cardFill
    border.color: style.rule
    border.width: 1

    SettingsStyle {
        id: style
    }
    ColumnLayout {
        id: rows
        anchors.left: parent.left
        anchors.right: parent.right
        spacing: 0
    }
}
