import QtQuick

// Where folders dragged in from elsewhere are pinned: the projects and the room below them.
// While a drag hovers, it is outlined in the accent colour.
DropArea {
    keys: ["text/uri-list"]
    onEntered: settings.isDropTargeted = true
    onExited: settings.isDropTargeted = false
    onDropped: drop => {
        settings.isDropTargeted = false
        drop.accepted = settings.handleDrop(drop.urls)
    }

    SettingsStyle {
        id: style
    }
    Rectangle {
        anchors.fill: parent
        visible: settings.isDropTargeted
        radius: 10
        color: "transparent"
        border.color: style.accent
        border.width: 2
    }
}
