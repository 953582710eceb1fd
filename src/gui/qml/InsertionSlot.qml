import QtQuick
import Tidewell

// The gap that opens where a folder dragged over the shelf will land. It opens and closes
// with the shelf's slot transition, and jumps without one when it moves to another place.
Item {
    id: gap

    property bool open: false
    // Before the tile the gap's spacing follows it; behind the tile it comes first.
    property bool isBeforeTile: true

    width: open ? 60 + 6 : 0
    height: 63
    clip: true
    // Fades with its width: both would take the same course.
    opacity: width / (60 + 6)
    visible: width > 0

    Behavior on width {
        enabled: shelfDrops.isGapAnimated
        ShelfTransition {
            transition: shelf.slotTransition
        }
    }

    DashedSlot {
        x: gap.isBeforeTile ? 0 : gap.width - width
        showsPlus: true
    }
    ShelfDropArea {
        anchors.fill: parent
        drops: shelfDrops
        target: ShelfDrops.Gap
    }
}
