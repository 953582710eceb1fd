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

// The delegate over a real panel controller, item store and launch-at-login component, on
// fake displays, windows, dialogs and time. The pointer rests on the main display, away from
// the shelf.
class AppDelegateTest : public PanelControllerFixture {
protected:
    AppDelegateTest() { pointer.where = farAway; }

    // Every service has a type of its own, so none can be passed in another's place.
    void launch(const ApplicationLocation& application) {
        launchAtLogin = std::make_unique<LaunchAgentManager>(files, loginItems, paths, application);
        delegate = std::make_unique<AppDelegate>(AppDelegate::Services{
            store, database, files, defaults, localCenter, distributedCenter, queue, workspace,
            *launchAtLogin, application, *controller, pointer, displays,
            [this] { controller->start(); }, settingsWindow, statusItem, folderChooser, alerts,
            runningApplication});
        delegate->applicationDidFinishLaunching();
        queue.runUntilIdle();
    }

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
    EXPECT_TRUE(alerts.messages.empty());

    const std::string dataFolder = root.path() + "/data/Tidewell";
    std::filesystem::remove_all(dataFolder);
    statusItem.choose(StatusMenuAction::revealData);
    EXPECT_TRUE(files.isDirectory(dataFolder));
    EXPECT_EQ(workspace.calls, (std::vector<FakeWorkspace::Call>{
                                   {FakeWorkspace::Operation::openFolder, dataFolder}}));
    statusItem.choose(StatusMenuAction::quit);
    EXPECT_EQ(runningApplication.terminateCount, 1);
}

} // namespace
} // namespace tidewell::testing
