#include "core/launch/TileActions.h"

#include "support/FakeExecutableLocator.h"
#include "support/FakeKeyValueStore.h"
#include "support/FakeProcessLauncher.h"
#include "support/FakeWorkspace.h"
#include "support/ItemsFixture.h"

namespace tidewell {
namespace {

using testing::FakeWorkspace;
using Calls = std::vector<FakeWorkspace::Call>;

class TileActionsTest : public testing::ItemsFixture {
protected:
    TileActionsTest() {
        executables.installed = {"xdg-terminal-exec", "konsole", "kitty"};
        settings.setPreferredTerminalApp(TerminalApp::konsole);
    }

    testing::FakeKeyValueStore defaults;
    AppearanceSettings settings{defaults};
    FakeWorkspace workspace;
    testing::FakeProcessLauncher processes;
    testing::FakeExecutableLocator executables;
    TerminalLauncher terminal{
        {files, processes, executables, queue, "/bin/bash", root.makeFolder("scripts")}};
    CodexAppLauncher codex{workspace};
    NotchItem item = database.upsert({.path = root.makeFolder("it's")});
    ItemStore store{{database, localCenter, distributedCenter, queue, workspace}};
    int settingsOpened = 0;
    TileActions actions{
        {store, settings, terminal, codex, workspace, [this] { ++settingsOpened; }}};
};

TEST_F(TileActionsTest, EachMenuEntryRunsItsActionAndTheStartCommandNeedsOne) {
    using enum TileAction;
    std::vector<std::pair<std::string, TileAction>> expected = {
        {"Open folder", openFolder},
        {"Open in Terminal", openInTerminal},
        {"Start Codex", startCodex},
        {"Start Claude Code", startClaudeCode},
        {"Show in File Manager", showInFileManager},
        {"Configure", configure}};
    for (const std::string command : {"", " "}) {
        item.launchCommand = command;
        std::vector<std::pair<std::string, TileAction>> entries;
        for (const TileMenuEntry& entry : TileActions::menu(item))
            if (!entry.isDivider)
                entries.emplace_back(entry.title, entry.action);
        EXPECT_EQ(entries, expected);
        expected.insert(expected.begin() + 4, {"Run start command", runStartCommand});
    }
}

TEST_F(TileActionsTest, CodexOpensInTheAppOnlyWhenChosenAndInstalled) {
    const FakeWorkspace::Call openInApp{FakeWorkspace::Operation::openWithApplication, item.path,
                                        "com.openai.codex"};
    for (const auto& [mode, isAppInstalled, calls, startsTerminal] :
         {std::tuple{CodexLaunchMode::app, true, Calls{openInApp}, false},
          std::tuple{CodexLaunchMode::app, false, Calls{openInApp}, true},
          std::tuple{CodexLaunchMode::cli, true, Calls{}, true}}) {
        settings.setCodexLaunchMode(mode);
        workspace.installedApplications.clear();
        if (isAppInstalled)
            workspace.installedApplications.insert("com.openai.codex");
        workspace.calls.clear();
        processes.launches.clear();
        actions.perform(TileAction::startCodex, item);
        EXPECT_EQ(workspace.calls, calls);
        // The emulator started and the text its shell runs.
        EXPECT_EQ(processes.launches.size(), startsTerminal ? 1u : 0u);
        for (const auto& [executable, arguments, isDetached] : processes.launches)
            EXPECT_EQ(executable + ": " + arguments.back(),
                      "konsole: " + TerminalLauncher::line("codex", item.path) +
                          "\nexec '/bin/bash' -i");
    }
}

} // namespace
} // namespace tidewell
