import QtQuick

// The tiles' colours for the appearance: black draws in white whatever the system's look,
// glass follows the system palette.
QtObject {
    readonly property bool isGlass: shelf.isGlass
    readonly property SystemPalette system: SystemPalette {}

    function withAlpha(color, alpha) {
        return Qt.rgba(color.r, color.g, color.b, alpha)
    }

    readonly property color primary: isGlass ? system.windowText : "white"
    readonly property color secondary: withAlpha(primary, isGlass ? 0.5 : 0.55)
    readonly property color hoverFill: withAlpha(primary, isGlass ? 0.11 : 0.14)
    readonly property color restFill: withAlpha(primary, 0)
    readonly property color restCircle: withAlpha(primary, isGlass ? 0.06 : 0.08)
    readonly property color restName: isGlass ? primary : withAlpha(primary, 0.85)
    // Where a dragged folder lands, and where a dragged tile was.
    readonly property color slotFill: withAlpha(primary, isGlass ? 0.04 : 0.05)
    readonly property color slotBorder: withAlpha(primary, isGlass ? 0.24 : 0.3)
}
