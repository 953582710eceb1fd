#include "core/app/AppDelegate.h"

#include "core/notify/NotificationNames.h"
#include "core/platform/Error.h"

#include <utility>

namespace tidewell {

AppDelegate::AppDelegate(Services services) : services_(std::move(services)) {}

AppDelegate::~AppDelegate() {
    applicationWillTerminate();
}

void AppDelegate::applicationDidFinishLaunching() {
    // Only an installed copy can be started at login; a build tree may be gone by then.
    if (services_.application.isInstalled) {
        try {
            services_.launchAtLogin.install(services_.defaults, services_.localCenter);
        } catch (const Error&) {
        }
    }
    configureStatusItem();
    observeTerminalCommands();
    services_.startPanel();
    if (consumeShowOnLaunchFlag())
        showBriefly();
}

bool AppDelegate::applicationShouldHandleReopen() {
    consumeShowOnLaunchFlag();
    showBriefly();
    return false;
}

void AppDelegate::applicationWillTerminate() {
    if (showShelfObserver_)
        services_.distributedCenter.removeObserver(*showShelfObserver_);
    showShelfObserver_.reset();
}

void AppDelegate::menuWillOpen() {
    services_.statusItem.setChecked(StatusMenuAction::toggleStartAtLogin,
                                    services_.launchAtLogin.isInstalled());
}

void AppDelegate::perform(StatusMenuAction action) {
    switch (action) {
    case StatusMenuAction::showShelf:
        return showShelf();
    case StatusMenuAction::addFolder:
        return addFolder();
    case StatusMenuAction::showSettings:
        return showSettings();
    case StatusMenuAction::toggleStartAtLogin:
        return toggleStartAtLogin();
    case StatusMenuAction::revealData:
        return revealData();
    case StatusMenuAction::quit:
        return quit();
    }
}

void AppDelegate::showShelf() {
    showBriefly();
}

void AppDelegate::addFolder() {
    const std::optional<std::string> folder = services_.folderChooser.chooseFolder("Add");
    if (!folder)
        return;
    services_.store.add(*folder, true);
    // So that the new tile is seen.
    showBriefly();
}

void AppDelegate::showSettings() {
    services_.settingsWindow.show();
}

void AppDelegate::toggleStartAtLogin() {
    LaunchAgentManager& launchAtLogin = services_.launchAtLogin;
    try {
        if (launchAtLogin.isInstalled())
            launchAtLogin.uninstall(services_.defaults, services_.localCenter);
        else
            launchAtLogin.install(services_.defaults, services_.localCenter);
    } catch (const Error& error) {
        services_.alerts.showAlert(error.what());
        return;
    }
    services_.statusItem.setChecked(StatusMenuAction::toggleStartAtLogin,
                                    launchAtLogin.isInstalled());
}

void AppDelegate::revealData() {
    const std::string& folder = services_.database.dataFolder().path;
    try {
        services_.files.createDirectories(folder);
    } catch (const Error&) {
    }
    services_.workspace.openFolder(folder);
}

void AppDelegate::quit() {
    services_.runningApplication.terminate();
}

void AppDelegate::configureStatusItem() {
    services_.statusItem.configure(statusMenuEntries(),
                                   {.perform = [this](StatusMenuAction action) { perform(action); },
                                    .menuWillOpen = [this] { menuWillOpen(); }});
}

// A second application start, and through it the tool's show command, asks for the shelf
// with this notification: it is this platform's way of reopening the running application.
void AppDelegate::observeTerminalCommands() {
    showShelfObserver_ = services_.distributedCenter.addObserver(
        notchShowShelf, [this, alive = std::weak_ptr<bool>(isAlive_)] {
            services_.queue.post([this, alive] {
                if (alive.lock())
                    applicationShouldHandleReopen();
            });
        });
}

bool AppDelegate::consumeShowOnLaunchFlag() {
    const std::string flag = services_.database.showOnLaunchFlagURL();
    if (!services_.files.exists(flag))
        return false;
    try {
        services_.files.removeFile(flag);
    } catch (const Error&) {
    }
    return true;
}

void AppDelegate::showBriefly() {
    const std::optional<Display> display = displayForShowing();
    if (!display)
        return;
    services_.panelController.show(*display);
    services_.panelController.scheduleHide(briefShowDuration);
}

// The display under the pointer, else the main display.
std::optional<Display> AppDelegate::displayForShowing() const {
    if (auto display = services_.panelController.screen(services_.pointer.location()))
        return display;
    const std::vector<Display> displays = services_.displays.all();
    if (displays.empty())
        return std::nullopt;
    return displays.front();
}

} // namespace tidewell
