import QtQuick

// One pinned project in the strip: its tile, with the gap for a dragged folder before or
// behind it when that is where the folder would land. The strip keeps the tile a drop is
// about in view.
Row {
    id: entry

    required property string itemId
    required property string name
    required property string path
    required property string initials
    required property color tint
    required property url imageSource

    readonly property bool isDropTarget: shelfDrops.gapBeforeId === itemId
                                         || shelfDrops.gapAfterId === itemId
                                         || shelfDrops.draggedItemId === itemId

    function revealIfTarget() {
        if (isDropTarget)
            stripScroll.reveal(x - ListView.view.originX, x + width - ListView.view.originX)
    }

    onIsDropTargetChanged: revealIfTarget()
    onXChanged: revealIfTarget()
    onWidthChanged: revealIfTarget()

    InsertionSlot {
        anchors.verticalCenter: parent.verticalCenter
        open: shelfDrops.gapBeforeId === entry.itemId
    }
    ShelfItemButton {
        anchors.verticalCenter: parent.verticalCenter
        itemId: entry.itemId
        name: entry.name
        path: entry.path
        initials: entry.initials
        tint: entry.tint
        imageSource: entry.imageSource
    }
    InsertionSlot {
        anchors.verticalCenter: parent.verticalCenter
        open: shelfDrops.gapAfterId === entry.itemId
        isBeforeTile: false
    }
}
