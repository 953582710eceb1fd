#pragma once

#include "core/app/StatusMenu.h"
#include "core/items/ItemDatabase.h"
#include "core/login/LaunchAgentManager.h"
#include "core/notify/NotificationCenter.h"
#include "core/platform/AlertPresenter.h"
#include "core/platform/ApplicationLocation.h"
#include "core/platform/Display.h"
#include "core/platform/DistributedNotificationCenter.h"
#include "core/platform/FileSystem.h"
#include "core/platform/FolderChooser.h"
#include "core/platform/KeyValueStore.h"
#include "core/platform/MainQueue.h"
#include "core/platform/Pointer.h"
#include "core/platform/RunningApplication.h"
#include "core/platform/SettingsWindow.h"
#include "core/platform/StatusItem.h"
#include "core/platform/Workspace.h"
#include "core/shelf/NotchPanelController.h"
#include "core/store/ItemStore.h"

#include <functional>
#include <memory>
#include <optional>

namespace tidewell {

// The running application's own decisions: what happens at start, on a request from a
// second start or from the tool, and on each entry of the status menu. Main thread only.
class AppDelegate {
public:
    struct Services {
        ItemStore& store;
        ItemDatabase& database;
        FileSystem& files;
        KeyValueStore& defaults;
        NotificationCenter& localCenter;
        DistributedNotificationCenter& distributedCenter;
        MainQueue& queue;
        Workspace& workspace;
        LaunchAgentManager& launchAtLogin;
        ApplicationLocation application;
        NotchPanelController& panelController;
        const Pointer& pointer;
        const Displays& displays;
        // Starts the panel following the pointer and the displays.
        std::function<void()> startPanel;
        SettingsWindow& settingsWindow;
        StatusItem& statusItem;
        FolderChooser& folderChooser;
        AlertPresenter& alerts;
        RunningApplication& runningApplication;
    };

    // How long a shelf shown on request stays open when the pointer is not over it.
    static constexpr std::chrono::duration<double> briefShowDuration{2.5};

    explicit AppDelegate(Services services);
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    // Once, after the event loop has started.
    void applicationDidFinishLaunching();
    // The application was started again while running. Answers false: nothing else is due.
    bool applicationShouldHandleReopen();
    void applicationWillTerminate();

    void menuWillOpen();
    void perform(StatusMenuAction action);

    void showShelf();
    void addFolder();
    void showSettings();
    void toggleStartAtLogin();
    void revealData();
    void quit();

private:
    void configureStatusItem();
    void observeTerminalCommands();
    // Deletes the flag the tool's show command leaves; true when it was there.
    bool consumeShowOnLaunchFlag();
    // Opens the shelf on the display under the pointer and closes it again shortly.
    void showBriefly();
    std::optional<Display> displayForShowing() const;

    Services services_;
    std::optional<ObserverToken> showShelfObserver_;
    // Queued tasks check it, so that none runs after the delegate is gone.
    std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
};

} // namespace tidewell
