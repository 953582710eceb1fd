import QtQuick
import Tidewell

// The round gear tile at the end of the row: opens the settings.
Item {
    id: gear

    readonly property bool hovering: input.containsMouse

    width: 27
    height: 27
    activeFocusOnTab: false

    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: gear.hovering ? shelfColors.hoverFill : shelfColors.restCircle
        Behavior on color {
            HoverFade {}
        }
    }
    SymbolImage {
        anchors.centerIn: parent
        name: "gearshape.fill"
        size: 13
        color: gear.hovering ? shelfColors.primary : shelfColors.secondary
        Behavior on color {
            HoverFade {}
        }
    }
    MouseArea {
        id: input
        anchors.fill: parent
        hoverEnabled: true
        containmentMask: RoundedHitShape {
            width: gear.width
            height: gear.height
            radius: gear.width / 2
        }
        onClicked: shelfActions.openSettings()
    }

    ShelfToolTip {
        target: gear
        text: "Configure Tidewell"
        shown: gear.hovering
        isGlass: shelf.isGlass
    }
    Accessible.role: Accessible.Button
    Accessible.name: "Configure Tidewell"
    Accessible.onPressAction: shelfActions.openSettings()
}
