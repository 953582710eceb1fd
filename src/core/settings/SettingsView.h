#pragma once

#include "core/launch/CodexAppLauncher.h"
#include "core/launch/TerminalLauncher.h"
#include "core/login/LaunchAgentManager.h"
#include "core/notify/NotificationCenter.h"
#include "core/observe/Signal.h"
#include "core/platform/FileSystem.h"
#include "core/platform/FolderChooser.h"
#include "core/platform/KeyValueStore.h"
#include "core/settings/AppearanceSettings.h"
#include "core/store/ItemStore.h"

#include <optional>
#include <string>
#include <vector>

namespace tidewell {

// What the settings window decides beyond the preferences themselves: the login switch,
// the captions under the rows, adding folders by choosing or dropping them.
class SettingsView {
public:
    struct Services {
        ItemStore& store;
        AppearanceSettings& appearance;
        LaunchAgentManager& launchAtLogin;
        KeyValueStore& defaults;
        NotificationCenter& localCenter;
        FolderChooser& folders;
        const FileSystem& files; // tells dropped folders from files
        const TerminalLauncher& terminal;
        const CodexAppLauncher& codex;
        // False where the display server cannot keep a window out of screen recordings.
        bool canHideFromScreenCapture;
    };

    explicit SettingsView(Services services);
    ~SettingsView();
    SettingsView(const SettingsView&) = delete;
    SettingsView& operator=(const SettingsView&) = delete;

    bool startsAtLogin() const { return startsAtLogin_; }
    // Installs or uninstalls; errors are dropped, the status notification corrects the switch.
    void setStartsAtLogin(bool value);
    bool isDropTargeted() const { return isDropTargeted_; }
    void setIsDropTargeted(bool value);

    // The captions under their rows; none when there is nothing to say. They are worked out
    // when the preferences change and when refreshed, not when read: looking for programs
    // reads the disk.
    const std::optional<std::string>& terminalCaption() const { return terminalCaption_; }
    const std::optional<std::string>& codexCaption() const { return codexCaption_; }
    std::optional<std::string> screenCaptureCaption() const;
    // Looks again for the terminal and the Codex app, which may have been installed or
    // removed meanwhile: each time the window is shown.
    void refreshCaptions();

    void chooseNewFolder();
    // Pins the existing folders among the paths, in order; false when there are none.
    bool handleDrop(const std::vector<std::string>& paths);

    // After startsAtLogin, isDropTargeted or a caption change.
    Signal<> changed;

private:
    // Emits changed when the value differs.
    void assign(bool& state, bool value);

    std::optional<std::string> missingTerminalCaption() const;
    std::optional<std::string> missingCodexCaption() const;

    Services services_;
    bool startsAtLogin_;
    bool isDropTargeted_ = false;
    std::optional<std::string> terminalCaption_;
    std::optional<std::string> codexCaption_;
    ObserverToken loginObserver_ = 0;
    Connection appearanceConnection_;
};

} // namespace tidewell
