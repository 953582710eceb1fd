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

    GapLoader {
        isOpen: shelfDrops.gapBeforeId === entry.itemId
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
    GapLoader {
        isOpen: shelfDrops.gapAfterId === entry.itemId
        isBeforeTile: false
    }

    // A gap is made when it starts to open and goes once it has closed: every tile has two,
    // and most never show. Made closed, it then opens with its transition. Named by its file,
    // its type loads with the first gap.
    component GapLoader: Loader {
        property bool isOpen: false
        property bool isBeforeTile: true

        anchors.verticalCenter: parent.verticalCenter
        active: isOpen || (item !== null && item.visible)
        source: "InsertionSlot.qml"
        onLoaded: {
            item.isBeforeTile = isBeforeTile
            item.open = Qt.binding(() => isOpen)
        }
    }
}
