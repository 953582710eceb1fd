import QtQuick
import QtQuick.Controls
import QtQuick.Layouts

// The settings window's contents, scrolling: the header, the general preferences, the
// projects (a drop target for folders) and a hint at the bottom.
Pane {
    id: root

    // The window decides the size: the scrolling contents must not.
    implicitWidth: 680
    implicitHeight: 500
    padding: 0
    // Qt 6.4's Fusion style keeps a light palette of its own: the controls get the desktop's.
    palette.window: style.system.window
    palette.windowText: style.system.windowText
    palette.base: style.system.base
    palette.alternateBase: style.system.alternateBase
    palette.text: style.system.text
    palette.placeholderText: style.secondary
    palette.button: style.system.button
    palette.buttonText: style.system.buttonText
    palette.highlight: style.system.highlight
    palette.highlightedText: style.system.highlightedText
    palette.light: style.system.light
    palette.midlight: style.system.midlight
    palette.mid: style.system.mid
    palette.dark: style.system.dark
    palette.shadow: style.system.shadow
    palette.toolTipBase: style.system.window
    palette.toolTipText: style.system.windowText

    SettingsStyle {
        id: style
    }
    Shortcut {
        sequences: ["Escape", "Ctrl+W"]
        onActivated: root.Window.window.close()
    }
    Shortcut {
        sequence: "Ctrl+N"
        onActivated: settings.chooseNewFolder()
    }
    // The control that takes the keyboard, by Tab for example, is scrolled into view.
    Connections {
        target: root.Window.window
        function onActiveFocusItemChanged() {
            const item = root.Window.activeFocusItem
            let ancestor = item
            while (ancestor && ancestor !== page)
                ancestor = ancestor.parent
            if (!ancestor)
                return
            const flickable = scroll.contentItem
            const top = item.mapToItem(page, 0, 0).y - 20
            const bottom = top + item.height + 40
            const shown = top >= flickable.contentY
                        && bottom <= flickable.contentY + flickable.height
            if (shown)
                return
            const wanted = top < flickable.contentY ? top : bottom - flickable.height
            flickable.contentY = Math.max(0, Math.min(wanted,
                                                      flickable.contentHeight - flickable.height))
        }
    }
    ScrollView {
        id: scroll
        anchors.fill: parent
        contentWidth: availableWidth
        contentHeight: page.height

        // The footer keeps to the bottom of a window taller than the contents; the projects'
        // drop target reaches down to it.
        Item {
            id: page
            width: scroll.availableWidth
            height: Math.max(column.implicitHeight + footer.implicitHeight + 56, root.height)

            ColumnLayout {
                id: column
                x: 20
                y: 20
                width: page.width - 40
                spacing: 16

                SettingsHeader {}
                GeneralSettings {}
                ProjectsSection {
                    id: projectsSection
                }
            }
            ProjectsDropArea {
                x: column.x - 6
                y: column.y + projectsSection.y - 6
                width: column.width + 12
                height: footer.y - 10 - y
            }
            Label {
                id: footer
                x: 20
                width: page.width - 40
                anchors.bottom: parent.bottom
                anchors.bottomMargin: 20
                text: "Hover at the top center of the display to open the shelf."
                color: style.secondary
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
        }
    }
}
