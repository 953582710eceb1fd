import QtQuick

// One pinned project in the strip: its tile, with the gap for a dragged folder before or
// behind it when that is where the folder would land. The strip keeps the tile a drop is
// about in view.
Item {
    id: entry

    required property string itemId
    required property string name
    required property string path
    required property string initials
    required property color tint
    required property url imageSource

    readonly property bool isGapTarget: shelfDrops.gapBeforeId === itemId
                                        || shelfDrops.gapAfterId === itemId
    readonly property bool isDropTarget: isGapTarget || shelfDrops.draggedItemId === itemId

    width: gaps.item !== null ? gaps.item.width : 60
    height: 63

    function revealIfTarget() {
        if (isDropTarget)
            stripScroll.reveal(x - ListView.view.originX, x + width - ListView.view.originX)
    }

    onIsDropTargetChanged: revealIfTarget()
    onXChanged: revealIfTarget()
    onWidthChanged: revealIfTarget()

    // Made when a gap starts to open and gone once both have closed: every tile has two,
    // and most never show. Named by its file, its type loads with the first gap.
    Loader {
        id: gaps
        active: entry.isGapTarget || (item !== null && item.isShowing)
        source: "TileGaps.qml"
        onLoaded: {
            item.isBeforeOpen = Qt.binding(() => shelfDrops.gapBeforeId === entry.itemId)
            item.isAfterOpen = Qt.binding(() => shelfDrops.gapAfterId === entry.itemId)
        }
    }
    ShelfItemButton {
        x: gaps.item !== null ? gaps.item.tileX : 0
        itemId: entry.itemId
        name: entry.name
        path: entry.path
        initials: entry.initials
        tint: entry.tint
        imageSource: entry.imageSource
    }
}
