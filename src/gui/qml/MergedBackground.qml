import QtQuick
import QtQuick.Shapes
import Tidewell

// The black or glass body that grows out of the notch, centred at the top of the shelf's
// frame. Its size and corner radii move with the shelf's transitions, and every step of
// the outline as drawn is reported to the bridge.
Item {
    id: background

    property real topRadius: shelf.topRadius
    property real bottomRadius: shelf.bottomRadius
    readonly property var steps: shelf.outlinePath(width, height, topRadius, bottomRadius)
    readonly property var drawnOutline: [parent.x + x, parent.y + y, width, height, topRadius, bottomRadius]

    x: (parent.width - width) / 2
    width: shelf.backgroundSize.width
    height: shelf.backgroundSize.height

    Behavior on width {
        ShelfTransition {}
    }
    Behavior on height {
        ShelfTransition {}
    }
    Behavior on topRadius {
        ShelfTransition {}
    }
    Behavior on bottomRadius {
        ShelfTransition {}
    }
    onDrawnOutlineChanged: shelf.reportOutline(...drawnOutline)

    SystemPalette {
        id: system
    }
    SoftShadow {
        anchors.fill: parent
        anchors.margins: -margin
        visible: shelf.hasShadow
        color: Qt.rgba(0, 0, 0, shelf.shadowOpacity)
        blur: shelf.shadowBlur
        offset: shelf.shadowOffset
        steps: background.steps
    }
    Shape {
        id: outline
        anchors.fill: parent
        // The software renderer draws shapes antialiased on its own; there a layer would only
        // keep one more picture of the body's size.
        layer.enabled: GraphicsInfo.api !== GraphicsInfo.Software
        layer.samples: 4

        ShapePath {
            // Without a compositor the glass shows as this colour, opaque.
            fillColor: shelf.isGlass ? Qt.rgba(system.window.r, system.window.g,
                                               system.window.b, 0.92) : "black"
            fillRule: ShapePath.WindingFill
            strokeWidth: -1
            startX: background.steps[0].x
            startY: background.steps[0].y

            PathQuad {
                x: background.steps[1].x
                y: background.steps[1].y
                controlX: background.steps[1].controlX
                controlY: background.steps[1].controlY
            }
            PathLine {
                x: background.steps[2].x
                y: background.steps[2].y
            }
            PathQuad {
                x: background.steps[3].x
                y: background.steps[3].y
                controlX: background.steps[3].controlX
                controlY: background.steps[3].controlY
            }
            PathLine {
                x: background.steps[4].x
                y: background.steps[4].y
            }
            PathQuad {
                x: background.steps[5].x
                y: background.steps[5].y
                controlX: background.steps[5].controlX
                controlY: background.steps[5].controlY
            }
            PathLine {
                x: background.steps[6].x
                y: background.steps[6].y
            }
            PathQuad {
                x: background.steps[7].x
                y: background.steps[7].y
                controlX: background.steps[7].controlX
                controlY: background.steps[7].controlY
            }
        }
    }
}
