import QtQuick
import Tidewell

// The row of tiles below the notch: the pinned projects (or the invitation to add one) and
// the gear tile. Its width follows the background; it fades with the shelf's content.
Item {
    id: content

    x: (parent.width - width) / 2
    width: shelf.backgroundSize.width
    height: shelf.topInset + row.height
    opacity: shelf.isExpanded ? 1 : 0
    visible: opacity > 0

    Behavior on width {
        ShelfTransition {}
    }
    Behavior on opacity {
        ShelfTransition {
            transition: shelf.fadeTransition
        }
    }

    // Folders dropped anywhere on the row, outside the tiles and the gap.
    ShelfDropArea {
        anchors.fill: row
        drops: shelfDrops
        target: ShelfDrops.Container
    }
    Row {
        id: row

        readonly property real stripRoom: content.width - leftPadding - rightPadding - spacing
                                          - gear.width

        y: shelf.topInset
        anchors.horizontalCenter: parent.horizontalCenter
        leftPadding: 14
        rightPadding: 14
        topPadding: 8
        bottomPadding: 8
        spacing: 10

        // The invitation to add a project and the strip cross-fade; the place between them
        // widens or narrows with the fade.
        Item {
            anchors.verticalCenter: parent.verticalCenter
            width: empty.width * empty.opacity + strip.width * strip.opacity
            height: strip.height

            // Made only while nothing is pinned, or while it fades: its two lines of text would
            // each keep a font of their own.
            Loader {
                id: empty
                anchors.verticalCenter: parent.verticalCenter
                opacity: favorites.count === 0 ? 1 : 0
                visible: opacity > 0
                active: opacity > 0
                source: "EmptyShelfButton.qml"
                Behavior on opacity {
                    ShelfTransition {
                        transition: shelf.slotTransition
                    }
                }
            }
            TileStrip {
                id: strip
                opacity: favorites.count > 0 ? 1 : 0
                visible: opacity > 0
                width: Math.max(0, Math.min(contentWidth, row.stripRoom))
                Behavior on opacity {
                    ShelfTransition {
                        transition: shelf.slotTransition
                    }
                }
            }
        }
        SettingsShelfButton {
            id: gear
            anchors.verticalCenter: parent.verticalCenter
        }
    }
}
