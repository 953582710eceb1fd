import QtQuick

// The pinned projects' tiles, scrolling sideways when they do not fit.
ListView {
    id: strip

    height: 63
    orientation: ListView.Horizontal
    spacing: 6
    model: favorites
    interactive: contentWidth > width
    boundsBehavior: Flickable.DragAndOvershootBounds

    delegate: ShelfStripEntry {}

    add: Transition {
        ShelfTransition {
            transition: shelf.slotTransition
            properties: "scale"
            from: 0.85
            to: 1
        }
        ShelfTransition {
            transition: shelf.slotTransition
            properties: "opacity"
            from: 0
            to: 1
        }
    }
    // A tile dragged over another takes its place while the pointer is held.
    move: Transition {
        ShelfTransition {
            transition: shelf.slotTransition
            properties: "x"
        }
    }
    moveDisplaced: Transition {
        ShelfTransition {
            transition: shelf.slotTransition
            properties: "x"
        }
    }
    remove: Transition {
        ShelfTransition {
            transition: shelf.slotTransition
            properties: "opacity"
            to: 0
        }
    }
}
