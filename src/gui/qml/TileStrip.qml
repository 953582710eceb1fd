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

    delegate: ShelfItemButton {}

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
    remove: Transition {
        ShelfTransition {
            transition: shelf.slotTransition
            properties: "opacity"
            to: 0
        }
    }
}
