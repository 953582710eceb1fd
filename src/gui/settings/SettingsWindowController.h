#pragma once

#include "core/platform/SettingsWindow.h"

#include <memory>

class QQuickView;

namespace tidewell {

class AppearanceSettings;
class CodexAppLauncher;
class FileSystem;
class FolderChooser;
class IconCache;
class ImageChooser;
class ItemStore;
class KeyValueStore;
class LaunchAgentManager;
class NotificationCenter;
class TerminalLauncher;

// The settings window: made on first use (few users open it in a session; its window,
// engine and models are not kept before), its contents on first showing.
// Closing it only hides it; showing it again brings back the same window. Escape and
// Ctrl+W close it, Ctrl+N adds a folder.
class SettingsWindowController : public SettingsWindow {
public:
    struct Services {
        ItemStore& store;
        AppearanceSettings& appearance;
        LaunchAgentManager& launchAtLogin;
        KeyValueStore& defaults;
        NotificationCenter& localCenter;
        FolderChooser& folders;
        ImageChooser& images;
        const FileSystem& files;
        const IconCache& iconCache;
        const TerminalLauncher& terminal;
        const CodexAppLauncher& codex;
        // False where the display server cannot keep a window out of screen recordings.
        bool canHideFromScreenCapture;
    };

    explicit SettingsWindowController(Services services);
    ~SettingsWindowController() override;
    SettingsWindowController(const SettingsWindowController&) = delete;
    SettingsWindowController& operator=(const SettingsWindowController&) = delete;

    // Centred on the screen under the pointer (where it is when the pointer is on none),
    // in front and active.
    void show() override;
    // Made if it was not yet.
    QQuickView& window();

private:
    struct Parts;
    const Services services_;
    std::unique_ptr<Parts> parts_;
};

} // namespace tidewell
