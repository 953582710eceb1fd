import QtQuick
import QtQuick.Shapes

// A tile-sized place with a dashed edge: where a dragged folder will land, or where the
// dragged tile was.
Item {
    id: slot

    property bool showsPlus: false

    readonly property real borderWidth: 1.5
    readonly property real inset: borderWidth / 2
    readonly property real radius: 12

    width: 60
    height: 63

    Rectangle {
        anchors.fill: parent
        radius: slot.radius
        color: shelfColors.slotFill
    }
    Shape {
        anchors.fill: parent
        // The software renderer draws shapes antialiased on its own; there a layer would only
        // keep one more picture of the slot's size.
        layer.enabled: GraphicsInfo.api !== GraphicsInfo.Software
        layer.samples: 4

        ShapePath {
            fillColor: "transparent"
            strokeColor: shelfColors.slotBorder
            strokeWidth: slot.borderWidth
            strokeStyle: ShapePath.DashLine
            // In units of the stroke's width: 4 points drawn, 3 left out.
            dashPattern: [4 / slot.borderWidth, 3 / slot.borderWidth]
            PathSvg {
                readonly property real left: slot.inset
                readonly property real top: slot.inset
                readonly property real right: slot.width - slot.inset
                readonly property real bottom: slot.height - slot.inset
                readonly property real r: slot.radius - slot.inset

                path: `M ${left + r} ${top} H ${right - r} A ${r} ${r} 0 0 1 ${right} ${top + r}`
                      + ` V ${bottom - r} A ${r} ${r} 0 0 1 ${right - r} ${bottom}`
                      + ` H ${left + r} A ${r} ${r} 0 0 1 ${left} ${bottom - r}`
                      + ` V ${top + r} A ${r} ${r} 0 0 1 ${left + r} ${top} Z`
            }
        }
    }
    SymbolImage {
        anchors.centerIn: parent
        visible: slot.showsPlus
        name: "plus"
        size: 13
        color: shelfColors.slotBorder
    }
}
