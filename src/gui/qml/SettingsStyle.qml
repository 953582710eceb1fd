import QtQuick

// The settings window's colours and type sizes, after the desktop's palette, so that the
// window is light or dark with the desktop.
QtObject {
    readonly property SystemPalette system: SystemPalette {
        colorGroup: SystemPalette.Active
    }

    function withAlpha(color, alpha) {
        return Qt.rgba(color.r, color.g, color.b, alpha)
    }
    // Sizes are given in logical pixels; Qt's point sizes are three quarters of those.
    function points(pixels) {
        return pixels * 0.75
    }

    readonly property color background: system.window
    readonly property color primary: system.windowText
    readonly property color secondary: withAlpha(primary, 0.6)
    readonly property color cardFill: withAlpha(primary, 0.045)
    readonly property color rule: withAlpha(primary, 0.07)
    readonly property color accent: system.highlight
    readonly property color destructive: "#e5453c"
}
