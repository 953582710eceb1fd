import QtQuick

// The shelf hanging from the top of the panel: the merged background, then the tiles. The
// view reaches the shadow margin beyond the shelf's frame on the left, right and bottom.
Item {
    id: root

    // One set for every tile, slot and button of the shelf.
    ShelfColors {
        id: shelfColors
    }
    Item {
        id: frame
        x: shelf.shadowMargin
        width: Math.max(0, root.width - 2 * shelf.shadowMargin)
        height: Math.max(0, root.height - shelf.shadowMargin)

        MergedBackground {}
        ShelfContent {}
    }
}
