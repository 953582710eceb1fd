import QtQuick
import QtQuick.Controls
import QtQuick.Layouts

// One project on a card of its own: its icon (a button that chooses a custom one), its name
// and folder, whether it is pinned, and the details it can be opened to. Each keystroke and
// each switch is written through as it happens.
SettingsCard {
    id: row

    required property int index
    required property string name
    required property string path
    required property bool isFavorite
    required property string initials
    required property color tint
    required property string tintHex
    required property string launchCommand
    required property url iconSource
    required property bool showsDetails

    SettingsStyle {
        id: style
    }
    RowLayout {
        Layout.fillWidth: true
        Layout.margins: 14
        Layout.topMargin: 10
        Layout.bottomMargin: 10
        spacing: 12

        ProjectIconButton {
            tint: row.tint
            initials: row.initials
            imageSource: row.iconSource
            onClicked: projects.chooseIcon(row.index)
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2

            PlainTextField {
                objectName: "nameField"
                Layout.fillWidth: true
                text: row.name
                placeholderText: "Name"
                font.pointSize: style.points(13)
                onTextEdited: projects.setName(row.index, text)
            }
            Label {
                Layout.fillWidth: true
                leftPadding: 6
                text: row.path
                font.pointSize: style.points(11)
                color: style.secondary
                elide: Text.ElideMiddle
            }
        }
        Switch {
            text: "Pinned"
            checked: row.isFavorite
            onToggled: projects.setIsFavorite(row.index, checked)
        }
        Button {
            id: detailsButton
            flat: true
            text: row.showsDetails ? "Hide details" : "Edit details"
            contentItem: RowLayout {
                spacing: 4

                // As wide open as closed, so that the rows' switches line up.
                Label {
                    Layout.preferredWidth: Math.max(editWidth.advanceWidth, hideWidth.advanceWidth)
                    text: detailsButton.text
                    color: style.primary

                    TextMetrics {
                        id: editWidth
                        font: detailsButton.font
                        text: "Edit details"
                    }
                    TextMetrics {
                        id: hideWidth
                        font: detailsButton.font
                        text: "Hide details"
                    }
                }
                SymbolImage {
                    name: "chevron.down"
                    size: 12
                    color: style.secondary
                    rotation: row.showsDetails ? 180 : 0
                }
            }
            onClicked: projects.toggleDetails(row.index)
        }
    }
    ItemSettingsDetails {
        Layout.fillWidth: true
        Layout.leftMargin: 14
        Layout.rightMargin: 14
        Layout.bottomMargin: 10
        visible: row.showsDetails
        project: row
    }
}
