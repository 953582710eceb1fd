import QtQuick
import Tidewell
import "TypeSize.js" as TypeSize

// Shown instead of the tiles while nothing is pinned: tells how to add a project and opens
// the settings.
Item {
    id: empty

    readonly property bool hovering: input.containsMouse

    width: label.width
    height: 48
    activeFocusOnTab: false

    Rectangle {
        anchors.fill: parent
        radius: 12
        color: empty.hovering ? shelfColors.hoverFill : shelfColors.restFill
        Behavior on color {
            HoverFade {}
        }
    }
    Row {
        id: label
        height: parent.height
        leftPadding: 12
        rightPadding: 12
        spacing: 10

        SymbolImage {
            anchors.verticalCenter: parent.verticalCenter
            name: "folder.badge.plus"
            size: 17
            color: shelfColors.secondary
        }
        Column {
            anchors.verticalCenter: parent.verticalCenter
            spacing: 2

            Text {
                text: "Add project"
                color: shelfColors.primary
                font.pointSize: TypeSize.points(11.5)
                font.weight: Font.DemiBold
            }
            Text {
                text: "tide add ."
                color: shelfColors.secondary
                font.family: "monospace"
                font.pointSize: TypeSize.points(9.5)
            }
        }
    }
    MouseArea {
        id: input
        anchors.fill: parent
        hoverEnabled: true
        containmentMask: RoundedHitShape {
            width: empty.width
            height: empty.height
            radius: 12
        }
        onClicked: shelfActions.openSettings()
    }

    Accessible.role: Accessible.Button
    Accessible.name: "Add project"
    Accessible.onPressAction: shelfActions.openSettings()
}
