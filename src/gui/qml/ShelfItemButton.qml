import QtQuick
import QtQuick.Controls

// A pinned project's tile: icon and name; a click opens the folder, a right click shows
// the project's menu.
Item {
    id: tile

    required property string itemId
    required property string name
    required property string path
    required property string initials
    required property color tint
    required property url imageSource

    readonly property bool hovering: input.containsMouse

    width: 60
    height: 63

    ShelfColors {
        id: colors
    }
    Rectangle {
        anchors.fill: parent
        radius: 12
        color: tile.hovering ? colors.hoverFill : colors.restFill
        Behavior on color {
            HoverFade {}
        }
    }
    Column {
        anchors.centerIn: parent
        spacing: 6

        ProjectIconView {
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
            font.pixelSize: 10
            font.weight: Font.Medium
            color: tile.hovering ? colors.primary : colors.restName
            Behavior on color {
                HoverFade {}
            }
        }
    }
    // Clicks and drags of the tile arrive here; the drag source takes this place.
    MouseArea {
        id: input
        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        containmentMask: RoundedHitShape {
            width: tile.width
            height: tile.height
            radius: 12
        }
        onClicked: mouse => {
            if (mouse.button === Qt.RightButton)
                shelfActions.showMenu(tile.itemId)
            else
                shelfActions.open(tile.itemId)
        }
    }

    ToolTip.text: tile.path
    ToolTip.visible: tile.hovering
    ToolTip.delay: Qt.styleHints.mousePressAndHoldInterval
    Accessible.role: Accessible.Button
    Accessible.name: tile.name
    Accessible.onPressAction: shelfActions.open(tile.itemId)
}
