import QtQuick
import Tidewell
import "TypeSize.js" as TypeSize

// A pinned project's tile: icon and name; a click opens the folder, a right click shows
// the project's menu, and a drag moves the tile. While it is dragged only a dashed outline
// stays in its place.
Item {
    id: tile

    property string itemId
    property string name
    property string path
    property string initials
    property color tint
    property url imageSource

    readonly property bool hovering: input.hovering
    readonly property bool isDragged: shelfDrops.draggedItemId === itemId

    width: 60
    height: 63

    // Made only while the tile is dragged: twenty idle slots would each keep a shape.
    Loader {
        active: tile.isDragged
        source: "DashedSlot.qml"
    }
    // Made into a node only once it has a colour: at rest it is clear.
    Rectangle {
        anchors.fill: parent
        opacity: tile.isDragged ? 0 : 1
        visible: color.a > 0
        radius: 12
        color: tile.hovering ? shelfColors.hoverFill : shelfColors.restFill
        Behavior on color {
            HoverFade {}
        }
    }
    Column {
        anchors.centerIn: parent
        opacity: tile.isDragged ? 0 : 1
        spacing: 6

        ProjectIconView {
            id: icon
            anchors.horizontalCenter: parent.horizontalCenter
            size: 40
            tint: tile.tint
            initials: tile.initials
            imageSource: tile.imageSource
        }
        Text {
            width: 56
            text: tile.name
            elide: Text.ElideMiddle
            maximumLineCount: 1
            horizontalAlignment: Text.AlignHCenter
            font.pointSize: TypeSize.points(10)
            font.weight: Font.Medium
            color: tile.hovering ? shelfColors.primary : shelfColors.restName
            Behavior on color {
                HoverFade {}
            }
        }
    }
    ShelfDropArea {
        anchors.fill: parent
        drops: shelfDrops
        target: ShelfDrops.Tile
        itemId: tile.itemId
    }
    TileDragView {
        id: input
        anchors.fill: parent
        cornerRadius: 12
        drops: shelfDrops
        itemId: tile.itemId
        iconItem: icon
        onClicked: shelfActions.open(tile.itemId)
        onMenuRequested: shelfActions.showMenu(tile.itemId)
        toolTip: tile.path
        isGlass: shelf.isGlass
    }

    Accessible.role: Accessible.Button
    Accessible.name: tile.name
    Accessible.onPressAction: shelfActions.open(tile.itemId)
}
