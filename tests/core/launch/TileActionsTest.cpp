#include "core/launch/TileActions.h"

#include "support/FakeExecutableLocator.h"
#include "support/FakeKeyValueStore.h"
#include "support/FakeProcessLauncher.h"
#include "support/FakeWorkspace.h"
#include "support/ItemsFixture.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

using namespace std::chrono_literals;
using testing::FakeExecutableLocator;
using testing::FakeKeyValueStore;
using testing::FakeProcessLauncher;
using testing::FakeWorkspace;

class TileActionsTest : public testing::ItemsFixture {
protected:
    TileActionsTest() {
        executables.installed = {"xdg-terminal-exec", "konsole", "kitty"};
        settings.setPreferredTerminalApp(TerminalApp::konsole);
        item = database.upsert({.path = root.makeFolder("it's")});
        store.emplace(
            ItemStore::Services{database, localCenter, distributedCenter, queue, workspace});
        actions.emplace(TileActions::Services{*store, settings, terminal, codex, workspace,
                                              [this] { ++settingsOpened; }});
    }

    // The emulator started last and the text its shell runs.
    std::pair<std::string, std::string> lastTerminal() const {
        if (processes.launches.empty())
            return {};
        return {processes.launches.back().executable, processes.launches.back().arguments.back()};
    }
    std::string shellLine(const std::string& command) const {
        return TerminalLauncher::line(command, item.path) + "\nexec '/bin/bash' -i";
    }
    Date storedLastOpenedAt() { return database.load().at(0).lastOpenedAt; }

    FakeKeyValueStore defaults;
    AppearanceSettings settings{defaults};
    FakeWorkspace workspace;
    FakeProcessLauncher processes;
    FakeExecutableLocator executables;
    TerminalLauncher terminal{
        {files, processes, executables, queue, "/bin/bash", root.makeFolder("scripts")}};
    CodexAppLauncher codex{workspace};
    NotchItem item;
    std::optional<ItemStore> store;
    std::optional<TileActions> actions;
    int settingsOpened = 0;
};

// The menu as the user sees it, dividers and all, is checked on the real menu; here is what
// each entry runs.
TEST_F(TileActionsTest, EachMenuEntryRunsItsActionAndTheStartCommandNeedsOne) {
    using enum TileAction;
    const auto entries = [this] {
        std::vector<std::pair<std::string, TileAction>> result;
        for (const TileMenuEntry& entry : TileActions::menu(item))
            if (!entry.isDivider)
                result.emplace_back(entry.title, entry.action);
        return result;
    };
    std::vector<std::pair<std::string, TileAction>> expected = {
        {"Open folder", openFolder},
        {"Open in Terminal", openInTerminal},
        {"Start Codex", startCodex},
        {"Start Claude Code", startClaudeCode},
        {"Show in File Manager", showInFileManager},
        {"Configure", configure}};
    EXPECT_EQ(entries(), expected);
    item.launchCommand = " ";
    expected.insert(expected.begin() + 4, {"Run start command", runStartCommand});
    EXPECT_EQ(entries(), expected);
}

TEST_F(TileActionsTest, TerminalActionsRunTheirCommandInTheItemFolder) {
    const std::vector<std::pair<TileAction, std::string>> cases = {
        {TileAction::openInTerminal, ""},
        {TileAction::startClaudeCode, "claude"},
        {TileAction::startCodex, "codex"},
        {TileAction::runStartCommand, "  "},
    };
    const Date openedAt = storedLastOpenedAt();
    clock.advance(1h);
    for (const auto& [action, command] : cases) {
        item.launchCommand = command;
        actions->perform(action, item);
        EXPECT_EQ(lastTerminal(), std::pair(std::string("konsole"), shellLine(command)));
    }
    EXPECT_EQ(processes.launches.size(), cases.size());
    EXPECT_TRUE(workspace.calls.empty());
    EXPECT_EQ(storedLastOpenedAt(), openedAt);
}

TEST_F(TileActionsTest, CodexOpensInTheAppOnlyWhenChosenAndInstalled) {
    using Call = FakeWorkspace::Call;
    const Call openInApp{FakeWorkspace::Operation::openWithApplication, item.path,
                         "com.openai.codex"};
    struct Case {
        CodexLaunchMode mode;
        bool isAppInstalled;
        std::vector<Call> calls;
        bool startsTerminal;
    };
    const std::vector<Case> cases = {
        {CodexLaunchMode::app, true, {openInApp}, false},
        {CodexLaunchMode::app, false, {openInApp}, true},
        {CodexLaunchMode::cli, true, {}, true},
    };
    for (const auto& [mode, isAppInstalled, calls, startsTerminal] : cases) {
        settings.setCodexLaunchMode(mode);
        workspace.installedApplications.clear();
        if (isAppInstalled)
            workspace.installedApplications.insert("com.openai.codex");
        workspace.calls.clear();
        processes.launches.clear();
        actions->perform(TileAction::startCodex, item);
        EXPECT_EQ(workspace.calls, calls);
        const auto expected = startsTerminal ? std::pair(std::string("konsole"), shellLine("codex"))
                                             : std::pair<std::string, std::string>();
        EXPECT_EQ(lastTerminal(), expected);
    }
}

// Which menu entries record an opening is checked on the real menu.
TEST_F(TileActionsTest, AClickOpensTheFolderAndRecordsItWhileConfigureOpensTheSettings) {
    const Date createdAt = storedLastOpenedAt();
    clock.advance(1h);
    actions->perform(TileAction::configure, item);
    EXPECT_EQ(settingsOpened, 1);
    EXPECT_TRUE(workspace.calls.empty());

    actions->primaryAction(item);
    EXPECT_EQ(workspace.calls, (std::vector<FakeWorkspace::Call>{
                                   {FakeWorkspace::Operation::openFolder, item.path}}));
    EXPECT_EQ(storedLastOpenedAt(), createdAt + 1h);
    EXPECT_TRUE(processes.launches.empty());
}

// The actions were made while konsole was the choice.
TEST_F(TileActionsTest, PreferencesAreReadWhenTheActionRuns) {
    settings.setPreferredTerminalApp(TerminalApp::kitty);
    actions->perform(TileAction::openInTerminal, item);
    EXPECT_EQ(lastTerminal().first, "kitty");
}

} // namespace
} // namespace tidewell
