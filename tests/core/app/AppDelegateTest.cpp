#include "core/app/AppDelegate.h"

#include "core/shelf/PanelControllerFixture.h"
#include "support/FakeFolderChooser.h"
#include "support/FakeLoginItemService.h"

#include <filesystem>
#include <map>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

const ApplicationLocation installedCopy{"/usr/local/bin/tidewell", true};

// The status menu, alerts, settings window and process as the delegate drives them: the test
// opens the menu and picks entries through the handlers it was given.
class FakeApplicationShell : public StatusItem,
                             public AlertPresenter,
                             public SettingsWindow,
                             public RunningApplication {
public:
    void configure(const std::vector<StatusMenuEntry>&, Handlers menuHandlers) override {
        handlers = std::move(menuHandlers);
    }
    void setChecked(StatusMenuAction action, bool isChecked) override {
        checked[action] = isChecked;
    }
    void showAlert(const std::string& message) override { alerts.push_back(message); }
    void show() override {}
    void terminate() override { ++terminateCount; }

    Handlers handlers;
    std::map<StatusMenuAction, bool> checked;
    std::vector<std::string> alerts;
    int terminateCount = 0;
};

// The delegate over a real panel controller, store and launch-at-login component, on fake
// displays, windows, dialogs and time. The pointer rests away from the shelf.
using AppDelegateTest = PanelControllerFixture;

TEST_F(AppDelegateTest, TheMenuAddsFoldersTogglesOpenAtLoginRevealsDataShowsSettingsAndQuits) {
    FakeLoginItemService loginItems;
    FakeApplicationShell shell;
    FakeFolderChooser folderChooser;
    LaunchAgentManager launchAtLogin(files, loginItems, paths, installedCopy);
    AppDelegate delegate({store, database, files, defaults, localCenter, distributedCenter, queue,
                          workspace, launchAtLogin, installedCopy, *controller, pointer, displays,
                          [this] { controller->start(); }, shell, shell, folderChooser, shell,
                          shell});
    const auto isStartAtLoginChecked = [&] {
        return shell.checked[StatusMenuAction::toggleStartAtLogin];
    };
    const auto choose = [&](StatusMenuAction action) { shell.handlers.perform(action); };
    pointer.where = farAway;
    delegate.applicationDidFinishLaunching();
    queue.runUntilIdle();
    choose(StatusMenuAction::addFolder);
    queue.advance(3s);
    EXPECT_EQ(folderChooser.prompts, std::vector<std::string>{"Add"});
    EXPECT_TRUE(store.items().empty());
    EXPECT_EQ(panel.orderFrontCount, 0) << "nothing shows at launch without the flag";
    folderChooser.choice = root.makeFolder("projects/harbour");
    choose(StatusMenuAction::addFolder);
    ASSERT_EQ(store.favorites().size(), 1u);
    EXPECT_EQ(store.favorites()[0].name, "harbour");
    // The shelf shows now, and has closed once 2.5 seconds and the closing are over.
    advanceMilliseconds(300);
    EXPECT_TRUE(panel.visible);
    advanceMilliseconds(2100);
    EXPECT_TRUE(panel.visible) << "still open just before 2.5 s";
    advanceMilliseconds(600);
    EXPECT_FALSE(panel.visible);

    // The check mark follows what is installed now, also when turned off elsewhere.
    shell.handlers.menuWillOpen();
    EXPECT_TRUE(isStartAtLoginChecked());
    loginItems.currentStatus = LoginItemStatus::notRegistered;
    shell.handlers.menuWillOpen();
    EXPECT_FALSE(isStartAtLoginChecked());
    choose(StatusMenuAction::toggleStartAtLogin);
    EXPECT_TRUE(isStartAtLoginChecked());
    EXPECT_EQ(loginItems.currentStatus, LoginItemStatus::enabled);
    EXPECT_TRUE(shell.alerts.empty());

    const std::string dataFolder = root.path() + "/data/Tidewell";
    std::filesystem::remove_all(dataFolder);
    choose(StatusMenuAction::revealData);
    EXPECT_TRUE(files.isDirectory(dataFolder));
    EXPECT_EQ(workspace.calls, (std::vector<FakeWorkspace::Call>{
                                   {FakeWorkspace::Operation::openFolder, dataFolder}}));
    choose(StatusMenuAction::quit);
    EXPECT_EQ(shell.terminateCount, 1);
}

} // namespace
} // namespace tidewell::testing
