#include "core/app/AppDelegate.h"

#include "core/notify/NotificationNames.h"
#include "core/shelf/PanelControllerFixture.h"
#include "support/FakeAlertPresenter.h"
#include "support/FakeFolderChooser.h"
#include "support/FakeLoginItemService.h"
#include "support/FakeRunningApplication.h"
#include "support/FakeSettingsWindow.h"
#include "support/FakeStatusItem.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

const ApplicationLocation installedCopy{"/usr/local/bin/tidewell", true};
const ApplicationLocation buildTreeCopy{"/home/user/src/tidewell/build/tidewell", false};

// The delegate over a real panel controller, item store and launch-at-login component, on
// fake displays, windows, dialogs and time. The pointer rests on the main display, away from
// the shelf.
class AppDelegateTest : public PanelControllerFixture {
protected:
    AppDelegateTest() { pointer.where = farAway; }

    // Every service has a type of its own, so none can be passed in another's place.
    void launch(const ApplicationLocation& application = buildTreeCopy) {
        launchAtLogin = std::make_unique<LaunchAgentManager>(files, loginItems, paths, application);
        delegate = std::make_unique<AppDelegate>(AppDelegate::Services{
            store, database, files, defaults, localCenter, distributedCenter, queue, workspace,
            *launchAtLogin, application, *controller, pointer, displays,
            [this] { controller->start(); }, settingsWindow, statusItem, folderChooser, alerts,
            runningApplication});
        delegate->applicationDidFinishLaunching();
        queue.runUntilIdle();
    }

    void writeShowOnLaunchFlag() { root.write("data/Tidewell/.showOnLaunch"); }
    bool hasShowOnLaunchFlag() const { return files.exists(database.showOnLaunchFlagURL()); }
    // The shelf shows now, and has closed once 2.5 seconds and the closing are over.
    void expectShownBriefly() {
        advanceMilliseconds(300);
        EXPECT_TRUE(panel.visible);
        advanceMilliseconds(2100);
        EXPECT_TRUE(panel.visible) << "still open just before 2.5 s";
        advanceMilliseconds(600);
        EXPECT_FALSE(panel.visible);
    }
    bool isStartAtLoginChecked() {
        return statusItem.checked[StatusMenuAction::toggleStartAtLogin];
    }

    FakeLoginItemService loginItems;
    std::unique_ptr<LaunchAgentManager> launchAtLogin;
    FakeSettingsWindow settingsWindow;
    FakeStatusItem statusItem;
    FakeFolderChooser folderChooser;
    FakeAlertPresenter alerts;
    FakeRunningApplication runningApplication;
    std::unique_ptr<AppDelegate> delegate;
};

// Also a second start, a reopen, and nothing once the application terminates.
TEST_F(AppDelegateTest, TheFlagLeftByTheToolShowsTheShelfBrieflyAtLaunchAndIsConsumed) {
    writeShowOnLaunchFlag();
    launch();
    EXPECT_FALSE(hasShowOnLaunchFlag());
    expectShownBriefly();

    writeShowOnLaunchFlag();
    distributedCenter.post(notchShowShelf);
    EXPECT_FALSE(panel.visible) << "the handler hops to a main-queue task";
    queue.runUntilIdle();
    EXPECT_FALSE(hasShowOnLaunchFlag());
    expectShownBriefly();
    EXPECT_FALSE(delegate->applicationShouldHandleReopen());
    expectShownBriefly();

    delegate->applicationWillTerminate();
    distributedCenter.post(notchShowShelf);
    queue.advance(1s);
    EXPECT_FALSE(panel.visible);
}

// Launching starts the panel, which opens for a pointer already in the trigger.
TEST_F(AppDelegateTest, TheShelfShowsOnTheDisplayUnderThePointerElseOnTheMainOneElseNowhere) {
    pointer.where = inTrigger;
    launch();
    advanceMilliseconds(300);
    EXPECT_TRUE(panel.visible);
    advanceMilliseconds(3000);
    pointer.where = {2000, 500};
    delegate->showShelf();
    advanceMilliseconds(300);
    EXPECT_GE(panel.currentFrame.minX(), sideDisplay.frame.minX());
    advanceMilliseconds(3000);

    pointer.where = {-500, -500};
    statusItem.choose(StatusMenuAction::showShelf);
    advanceMilliseconds(300);
    EXPECT_EQ(panel.currentFrame, emptyShelfFrame);
    advanceMilliseconds(3000);

    displays.displays.clear();
    const int shownBefore = panel.orderFrontCount;
    delegate->showShelf();
    advanceMilliseconds(3000);
    EXPECT_EQ(panel.orderFrontCount, shownBefore);
}

TEST_F(AppDelegateTest, TheMenuAddsFoldersTogglesOpenAtLoginRevealsDataShowsSettingsAndQuits) {
    launch(installedCopy);
    statusItem.choose(StatusMenuAction::addFolder);
    queue.advance(3s);
    EXPECT_EQ(folderChooser.prompts, std::vector<std::string>{"Add"});
    EXPECT_TRUE(store.items().empty());
    EXPECT_EQ(panel.orderFrontCount, 0) << "nothing shows at launch without the flag";
    folderChooser.choice = root.makeFolder("projects/harbour");
    statusItem.choose(StatusMenuAction::addFolder);
    ASSERT_EQ(store.favorites().size(), 1u);
    EXPECT_EQ(store.favorites()[0].name, "harbour");
    expectShownBriefly();

    // The check mark follows what is installed now, also when turned off elsewhere.
    statusItem.openMenu();
    EXPECT_TRUE(isStartAtLoginChecked());
    loginItems.currentStatus = LoginItemStatus::notRegistered;
    statusItem.openMenu();
    EXPECT_FALSE(isStartAtLoginChecked());
    statusItem.choose(StatusMenuAction::toggleStartAtLogin);
    EXPECT_TRUE(isStartAtLoginChecked());
    EXPECT_EQ(loginItems.currentStatus, LoginItemStatus::enabled);
    statusItem.choose(StatusMenuAction::toggleStartAtLogin);
    EXPECT_FALSE(isStartAtLoginChecked());
    EXPECT_EQ(loginItems.currentStatus, LoginItemStatus::notRegistered);
    EXPECT_TRUE(alerts.messages.empty());

    const std::string dataFolder = root.path() + "/data/Tidewell";
    std::filesystem::remove_all(dataFolder);
    statusItem.choose(StatusMenuAction::revealData);
    EXPECT_TRUE(files.isDirectory(dataFolder));
    EXPECT_EQ(workspace.calls, (std::vector<FakeWorkspace::Call>{
                                   {FakeWorkspace::Operation::openFolder, dataFolder}}));
    statusItem.choose(StatusMenuAction::showSettings);
    EXPECT_EQ(settingsWindow.showCount, 1);
    statusItem.choose(StatusMenuAction::quit);
    EXPECT_EQ(runningApplication.terminateCount, 1);
}

// At launch, failures pass quietly; a failed toggle shows the error and keeps the mark.
TEST_F(AppDelegateTest, OnlyAnInstalledCopyInstallsOpenAtLoginAtLaunchAndFailuresPassQuietly) {
    launch(buildTreeCopy);
    EXPECT_EQ(loginItems.registerCount, 0);
    launch(installedCopy);
    EXPECT_EQ(loginItems.registerCount, 1);
    EXPECT_EQ(loginItems.currentStatus, LoginItemStatus::enabled);

    // Neither the service nor the fallback agent file can be set up.
    loginItems.currentStatus = LoginItemStatus::notRegistered;
    loginItems.registerFailure = "The login item could not be registered.";
    root.write("home/Library", "a file where the folder belongs");
    writeShowOnLaunchFlag();
    launch(installedCopy);
    EXPECT_EQ(loginItems.registerCount, 2);
    EXPECT_TRUE(alerts.messages.empty());
    EXPECT_EQ(statusItem.entries.size(), 8u) << "the launch went on";
    expectShownBriefly();

    loginItems.currentStatus = LoginItemStatus::enabled;
    loginItems.unregisterFailure = "The login item could not be removed.";
    statusItem.openMenu();
    statusItem.choose(StatusMenuAction::toggleStartAtLogin);
    EXPECT_EQ(alerts.messages, std::vector<std::string>{"The login item could not be removed."});
    EXPECT_TRUE(isStartAtLoginChecked());
}

} // namespace
} // namespace tidewell::testing
