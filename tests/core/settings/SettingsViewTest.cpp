#include "core/settings/SettingsView.h"

#include "support/FakeExecutableLocator.h"
#include "support/FakeFolderChooser.h"
#include "support/FakeKeyValueStore.h"
#include "support/FakeLoginItemService.h"
#include "support/FakeProcessLauncher.h"
#include "support/FakeWorkspace.h"
#include "support/ItemsFixture.h"

#include <memory>

namespace tidewell::testing {
namespace {

const ApplicationLocation installedCopy{"/usr/local/bin/tidewell", true};
const ApplicationLocation buildTreeCopy{"/home/user/src/tidewell/build/tidewell", false};

// The view over a real store, preferences and login component; fake dialogs and desktop.
class SettingsViewTest : public ItemsFixture {
protected:
    SettingsViewTest() { executables.installed = {"xdg-terminal-exec"}; }

    SettingsView& open(const ApplicationLocation& application = installedCopy,
                       bool canHideFromScreenCapture = false) {
        view.reset();
        launchAtLogin = std::make_unique<LaunchAgentManager>(files, loginItems, paths, application);
        view = std::make_unique<SettingsView>(
            SettingsView::Services{store, appearance, *launchAtLogin, defaults, localCenter,
                                   folders, files, terminal, codex, canHideFromScreenCapture});
        changes = 0;
        counting = view->changed.connect([this] { ++changes; });
        return *view;
    }

    FakeKeyValueStore defaults;
    AppearanceSettings appearance{defaults};
    FakeWorkspace workspace;
    ItemStore store{{database, localCenter, distributedCenter, queue, workspace}};
    FakeLoginItemService loginItems;
    std::unique_ptr<LaunchAgentManager> launchAtLogin;
    FakeFolderChooser folders;
    FakeProcessLauncher processes;
    FakeExecutableLocator executables;
    TerminalLauncher terminal{
        {files, processes, executables, queue, "/bin/sh", root.makeFolder("scripts")}};
    CodexAppLauncher codex{workspace};
    std::unique_ptr<SettingsView> view;
    int changes = 0;
    Connection counting;
};

// Open at login follows changes made elsewhere; a failed install leaves the switch off.
TEST_F(SettingsViewTest, OpenAtLoginInstallsUninstallsAndFollowsChangesMadeElsewhere) {
    loginItems.currentStatus = LoginItemStatus::enabled;
    EXPECT_TRUE(open().startsAtLogin());
    loginItems.currentStatus = LoginItemStatus::notRegistered;
    SettingsView& settings = open();
    settings.setStartsAtLogin(true);
    EXPECT_EQ(loginItems.currentStatus, LoginItemStatus::enabled);
    EXPECT_TRUE(settings.startsAtLogin());
    EXPECT_EQ(changes, 1);
    queue.runUntilIdle();
    EXPECT_TRUE(settings.startsAtLogin());

    loginItems.currentStatus = LoginItemStatus::notRegistered; // turned off from the status menu
    changes = 0;
    localCenter.post(tidewellLoginStatusChanged);
    queue.runUntilIdle();
    EXPECT_FALSE(settings.startsAtLogin());
    EXPECT_EQ(changes, 1);
    settings.setStartsAtLogin(true);
    settings.setStartsAtLogin(false);
    EXPECT_EQ(loginItems.currentStatus, LoginItemStatus::notRegistered);

    loginItems.currentStatus = LoginItemStatus::notFound;
    loginItems.registerFailure = "The login item could not be registered.";
    SettingsView& failing = open(buildTreeCopy);
    failing.setStartsAtLogin(true);
    EXPECT_FALSE(failing.startsAtLogin());
    EXPECT_EQ(changes, 2) << "on, then back off";
    EXPECT_FALSE(files.exists(launchAtLogin->legacyPlistURL()));
}

// Each caption shows only while the choice cannot be honoured.
TEST_F(SettingsViewTest, CaptionsNameAChosenTerminalOrAppThatIsMissing) {
    SettingsView& settings = open();
    appearance.setPreferredTerminalApp(TerminalApp::xfce4Terminal);
    EXPECT_EQ(settings.terminalCaption(), "Xfce Terminal not found — using Terminal instead.");
    executables.installed.insert("xfce4-terminal");
    settings.refreshCaptions();
    EXPECT_EQ(settings.terminalCaption(), std::nullopt);
    executables.installed.clear(); // no terminal at all: nothing to say for the default
    appearance.setPreferredTerminalApp(TerminalApp::terminal);
    EXPECT_EQ(settings.terminalCaption(), std::nullopt);

    appearance.setCodexLaunchMode(CodexLaunchMode::app);
    EXPECT_EQ(settings.codexCaption(), "Codex app not found — using the CLI instead.");
    appearance.setCodexLaunchMode(CodexLaunchMode::cli);
    EXPECT_EQ(settings.codexCaption(), std::nullopt);
    appearance.setCodexLaunchMode(CodexLaunchMode::app);
    workspace.installedApplications.insert(CodexAppLauncher::applicationId);
    settings.refreshCaptions();
    EXPECT_EQ(settings.codexCaption(), std::nullopt);

    EXPECT_EQ(settings.screenCaptureCaption(),
              "Not supported on this desktop: screen recordings still show the shelf.");
    EXPECT_EQ(open(installedCopy, true).screenCaptureCaption(), std::nullopt);
}

// Chosen and dropped folders are pinned after the others; a drop of files alone is refused.
TEST_F(SettingsViewTest, ChosenOrDroppedFoldersArePinnedAndFilesAloneRefused) {
    SettingsView& settings = open();
    const std::string file = root.write("notes.txt");
    EXPECT_FALSE(settings.handleDrop({file}));
    folders.choice = root.makeFolder("chosen");
    settings.chooseNewFolder();
    EXPECT_TRUE(settings.handleDrop({file, root.makeFolder("dropped")}));
    queue.runUntilIdle();
    EXPECT_EQ(names(store.favorites()), (std::vector<std::string>{"chosen", "dropped"}));
    EXPECT_EQ(folders.prompts, std::vector<std::string>{"Add"});
}

} // namespace
} // namespace tidewell::testing
