import QtQuick

// A tile's two gaps with the tile's room between them, made while either shows. Made closed,
// the gaps then open with their transitions once the entry binds them.
Row {
    property bool isBeforeOpen: false
    property bool isAfterOpen: false
    readonly property real tileX: before.width
    readonly property bool isShowing: before.visible || after.visible

    InsertionSlot {
        id: before
        open: parent.isBeforeOpen
    }
    Item {
        width: 60
        height: 63
    }
    InsertionSlot {
        id: after
        open: parent.isAfterOpen
        isBeforeTile: false
    }
}
