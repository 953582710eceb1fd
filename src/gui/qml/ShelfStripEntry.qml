import QtQuick

// One pinned project in the strip: its tile, with the gap for a dragged folder before or
// behind it when that is where the folder would land.
Row {
    id: entry

    required property string itemId
    required property string name
    required property string path
    required property string initials
    required property color tint
    required property url imageSource

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
