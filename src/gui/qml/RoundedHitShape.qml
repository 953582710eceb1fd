import QtQuick

// A rounded rectangle as an item's hit shape (for containmentMask): pointer positions in its
// cut-off corners miss.
QtObject {
    property real width
    property real height
    property real radius

    function contains(point: point): bool {
        if (point.x < 0 || point.y < 0 || point.x > width || point.y > height)
            return false
        const dx = Math.max(radius - point.x, point.x - (width - radius), 0)
        const dy = Math.max(radius - point.y, point.y - (height - radius), 0)
        return dx * dx + dy * dy <= radius * radius
    }
}
