import QtQuick
import QtQuick.Controls
import QtQuick.Layouts

// A project's details: its folder, the initials and colour drawn without an icon, its start
// command, and removing it from the shelf.
ColumnLayout {
    id: details

    required property Item project

    spacing: 8

    SettingsStyle {
        id: style
    }
    SettingsDivider {}
    DetailRow {
        label: "Folder"

        Label {
            Layout.fillWidth: true
            text: details.project.path
            color: style.primary
            elide: Text.ElideMiddle
        }
        Button {
            text: "Choose folder"
            onClicked: projects.chooseFolder(details.project.index)
        }
    }
    DetailRow {
        label: "Fallback icon"

        PlainTextField {
            Layout.preferredWidth: 56
            text: details.project.initials
            onTextEdited: projects.setInitials(details.project.index, text)
            Accessible.name: "Initials"
        }
        ColorWell {
            hex: details.project.tintHex
            onPicked: hex => projects.setTintHex(details.project.index, hex)
        }
        Item {
            Layout.fillWidth: true
        }
    }
    DetailRow {
        label: "Start command"

        PlainTextField {
            Layout.fillWidth: true
            text: details.project.launchCommand
            placeholderText: "npm run dev"
            onTextEdited: projects.setLaunchCommand(details.project.index, text)
            Accessible.name: "Start command"
        }
    }
    Button {
        flat: true
        text: "Remove from shelf"
        palette.buttonText: style.destructive
        onClicked: projects.remove(details.project.index)
    }
}
