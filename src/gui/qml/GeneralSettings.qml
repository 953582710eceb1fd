import QtQuick
import QtQuick.Controls
import QtQuick.Layouts

// The card of preferences: the shelf's look, the terminal, how Codex starts, privacy and
// launch at login.
SettingsCard {
    SettingsRow {
        title: "Shelf appearance"
        symbol: "circle.lefthalf.filled"

        SettingsPicker {
            label: "Shelf appearance"
            model: settings.shelfAppearanceNames
            currentIndex: settings.shelfAppearanceIndex
            onActivated: index => settings.shelfAppearanceIndex = index
        }
    }
    SettingsDivider {}
    SettingsRow {
        title: "Open terminal in"
        symbol: "terminal"
        caption: settings.terminalCaption

        SettingsPicker {
            label: "Terminal app"
            model: settings.terminalAppNames
            currentIndex: settings.terminalAppIndex
            onActivated: index => settings.terminalAppIndex = index
        }
    }
    SettingsDivider {}
    SettingsRow {
        title: "Start Codex using"
        symbol: "chevron.left.forwardslash.chevron.right"
        caption: settings.codexCaption

        SettingsPicker {
            label: "Codex launch mode"
            model: settings.codexLaunchModeNames
            currentIndex: settings.codexLaunchModeIndex
            onActivated: index => settings.codexLaunchModeIndex = index
        }
    }
    SettingsDivider {}
    SettingsRow {
        title: "Hide shelf from screen recordings"
        symbol: "eye.slash"
        caption: settings.screenCaptureCaption

        Switch {
            checked: settings.hideFromScreenCapture
            onToggled: settings.hideFromScreenCapture = checked
            Accessible.name: "Hide shelf from screen recordings"
        }
    }
    SettingsDivider {}
    SettingsRow {
        title: "Open at login"
        symbol: "power"

        Switch {
            checked: settings.startsAtLogin
            onToggled: settings.startsAtLogin = checked
            Accessible.name: "Open at login"
        }
    }
}
