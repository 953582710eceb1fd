#include "gui/app/Application.h"

#include "core/app/AppDelegate.h"
#include "core/icons/IconCache.h"
#include "core/launch/TileActions.h"
#include "core/platform/SystemClock.h"
#include "gui/app/ItemsFileWatcher.h"
#include "gui/app/QtAlertPresenter.h"
#include "gui/app/QtRunningApplication.h"
#include "gui/app/SdBusPump.h"
#include "gui/app/StatusMenu.h"
#include "gui/images/SymbolIcons.h"
#include "gui/platform/GioWorkspace.h"
#include "gui/platform/QSettingsKeyValueStore.h"
#include "gui/platform/QtMainQueue.h"
#include "gui/settings/QtFolderChooser.h"
#include "gui/settings/QtImageChooser.h"
#include "gui/settings/SettingsWindowController.h"
#include "gui/shelf/ShelfPanel.h"
#include "gui/windowsystem/OpenWindowSystem.h"
#include "gui/windowsystem/WindowSystem.h"
#include "linux/CurrentApplicationLocation.h"
#include "linux/PathExecutableLocator.h"
#include "linux/PosixFileSystem.h"
#include "linux/PosixProcessLauncher.h"
#include "linux/QtPluginImageFormats.h"
#include "linux/SdBusNotificationCenter.h"
#include "linux/UserShell.h"
#include "linux/XdgAutostartLoginItemService.h"
#include "linux/XdgPaths.h"

namespace tidewell {

struct Application::Parts {
    const WindowSystemKind windowSystemKind;
    PosixFileSystem files;
    SystemClock clock;
    QtMainQueue queue;
    NotificationCenter localCenter{queue};
    SdBusNotificationCenter distributedCenter;
    const UserPaths paths = XdgPaths::userPaths();
    const QtPluginImageFormats imageFormats = QtPluginImageFormats::installed();
    ItemDatabase database{{files, clock, localCenter, distributedCenter, imageFormats},
                          DataFolder(paths)};
    IconCache iconCache{files, database.dataFolder().iconsFolder()};
    GioWorkspace workspace;
    ItemStore store{{database, localCenter, distributedCenter, queue, workspace}};
    // After the store, whose observers open the bus connection.
    SdBusPump busPump{distributedCenter};
    ItemsFileWatcher itemsFileWatcher{database.dataFolder(), localCenter};
    QSettingsKeyValueStore defaults;
    AppearanceSettings appearance{defaults};
    PosixProcessLauncher launcher;
    PathExecutableLocator executables;
    TerminalLauncher terminal{
        {files, launcher, executables, queue, userShell(), XdgPaths::runtimeFolder()}};
    CodexAppLauncher codex{workspace};
    // The settings window is made further down, with what it needs; the actions open it
    // only once everything is made.
    TileActions tileActions{
        {store, appearance, terminal, codex, workspace, [this] { settingsWindow.show(); }}};
    const ApplicationLocation application = currentApplicationLocation();
    XdgAutostartLoginItemService loginItems{files, XdgPaths::configHome(), application};
    LaunchAgentManager launchAtLogin{files, loginItems, paths, application};
    const std::unique_ptr<WindowSystem> windowSystem =
        openWindowSystem(windowSystemKind, localCenter);
    QtFolderChooser folderChooser;
    QtImageChooser imageChooser;
    SettingsWindowController settingsWindow{
        {.store = store,
         .appearance = appearance,
         .launchAtLogin = launchAtLogin,
         .defaults = defaults,
         .localCenter = localCenter,
         .folders = folderChooser,
         .images = imageChooser,
         .files = files,
         .iconCache = iconCache,
         .terminal = terminal,
         .codex = codex,
         .canHideFromScreenCapture = windowSystem->canHideFromSharing()}};
    ShelfPanel shelf{{*windowSystem, store, appearance, tileActions, queue, localCenter, iconCache,
                      files, [this] { settingsWindow.show(); }}};
    StatusMenu statusMenu{localCenter, symbolIcon("rectangle.topthird.inset.filled")};
    QtAlertPresenter alerts;
    QtRunningApplication runningApplication;
    AppDelegate delegate{{.store = store,
                          .database = database,
                          .files = files,
                          .defaults = defaults,
                          .localCenter = localCenter,
                          .distributedCenter = distributedCenter,
                          .queue = queue,
                          .workspace = workspace,
                          .launchAtLogin = launchAtLogin,
                          .application = application,
                          .panelController = shelf.controller(),
                          .pointer = windowSystem->pointer(),
                          .displays = windowSystem->displays(),
                          .startPanel = [this] { shelf.start(); },
                          .settingsWindow = settingsWindow,
                          .statusItem = statusMenu,
                          .folderChooser = folderChooser,
                          .alerts = alerts,
                          .runningApplication = runningApplication}};
};

Application::Application(WindowSystemKind windowSystem)
    : parts_(std::make_unique<Parts>(windowSystem)) {}

Application::~Application() = default;

void Application::didFinishLaunching() {
    parts_->delegate.applicationDidFinishLaunching();
}

void Application::willTerminate() {
    parts_->delegate.applicationWillTerminate();
}

} // namespace tidewell
