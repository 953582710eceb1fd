import QtQuick

// Twenty rounded tiles with a name under each, on black: the shelf's contents without its
// effects (no drop shadow, no masked icons, no shapes, no controls).
Rectangle {
    color: "black"

    Row {
        anchors.centerIn: parent
        spacing: 8

        Repeater {
            model: 20

            Column {
                spacing: 4

                Rectangle {
                    width: 40
                    height: 40
                    radius: 10
                    color: Qt.hsla(index / 20, 0.6, 0.5, 1)
                }
                Text {
                    width: 40
                    elide: Text.ElideRight
                    color: "white"
                    font.pixelSize: 10
                    text: "project-" + (index + 1)
                }
            }
        }
    }
}
