import QtQuick

// The pinned projects' tiles, clipped to the strip and scrolled sideways by the wheel when
// they do not fit. Neighbours slide aside when a tile enters, leaves or moves.
ListView {
    id: strip

    height: 63
    orientation: ListView.Horizontal
    spacing: 6
    model: favorites
    clip: true
    interactive: false
    contentX: originX + stripScroll.offset

    onContentWidthChanged: stripScroll.setExtent(contentWidth, width)
    onWidthChanged: stripScroll.setExtent(contentWidth, width)

    // Below the tiles, which let the wheel pass; either wheel direction reaches it.
    MouseArea {
        parent: strip
        anchors.fill: parent
        z: -1
        acceptedButtons: Qt.NoButton
        onWheel: wheel => stripScroll.wheel(wheel.angleDelta)
    }

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
    displaced: Transition {
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
