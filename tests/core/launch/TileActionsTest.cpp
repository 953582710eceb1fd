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

TEST_F(TileActionsTest, MenuShowsTheStartCommandOnlyWhenThereIsOne) {
    const TileMenuEntry divider{.isDivider = true};
    const TileMenuEntry startCommand{false, TileAction::runStartCommand, "Run start command",
                                     "play.fill"};
    const std::vector<TileMenuEntry> full = {
        {false, TileAction::openFolder, "Open folder", "folder"},
        {false, TileAction::openInTerminal, "Open in Terminal", "terminal"},
        divider,
        {false, TileAction::startCodex, "Start Codex", "chevron.left.forwardslash.chevron.right"},
        {false, TileAction::startClaudeCode, "Start Claude Code", "sparkles"},
        startCommand,
        divider,
        {false, TileAction::showInFileManager, "Show in File Manager", "arrow.forward.circle"},
        {false, TileAction::configure, "Configure", "gearshape"},
    };
    auto withoutStartCommand = full;
    std::erase(withoutStartCommand, startCommand);
    const std::vector<std::pair<std::string, std::vector<TileMenuEntry>>> cases = {
        {"", withoutStartCommand}, {"npm start", full}, {" ", full}};
    for (const auto& [command, expected] : cases) {
        item.launchCommand = command;
        EXPECT_EQ(TileActions::menu(item), expected) << '"' << command << '"';
    }
    EXPECT_EQ(withoutStartCommand.size(), 8u);
}

TEST_F(TileActionsTest, TerminalActionsRunTheirCommandInTheItemFolder) {
    const std::vector<std::pair<TileAction, std::string>> cases = {
        {TileAction::openInTerminal, ""},
        {TileAction::startClaudeCode, "claude"},
        {TileAction::startCodex, "codex"},
        {TileAction::runStartCommand, "  "},
        {TileAction::runStartCommand, "echo \"$HOME\" \\"},
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

TEST_F(TileActionsTest, OnlyOpeningTheFolderRecordsTheOpening) {
    const Date createdAt = storedLastOpenedAt();
    clock.advance(1h);
    actions->perform(TileAction::showInFileManager, item);
    actions->perform(TileAction::configure, item);
    EXPECT_EQ(workspace.calls,
              (std::vector<FakeWorkspace::Call>{{FakeWorkspace::Operation::reveal, item.path}}));
    EXPECT_EQ(settingsOpened, 1);
    EXPECT_EQ(storedLastOpenedAt(), createdAt);

    actions->primaryAction(item);
    EXPECT_EQ(workspace.calls.back(),
              (FakeWorkspace::Call{FakeWorkspace::Operation::openFolder, item.path}));
    EXPECT_EQ(storedLastOpenedAt(), createdAt + 1h);
    EXPECT_TRUE(processes.launches.empty());
}

TEST_F(TileActionsTest, PreferencesAreReadWhenTheActionRuns) {
    const auto menu = TileActions::menu(item);
    const TileAction openInTerminal = menu.at(1).action;
    actions->perform(openInTerminal, item);
    settings.setPreferredTerminalApp(TerminalApp::kitty);
    actions->perform(openInTerminal, item);
    settings.setPreferredTerminalApp(TerminalApp::wezterm); // not installed
    actions->perform(openInTerminal, item);
    std::vector<std::string> started;
    for (const auto& launch : processes.launches)
        started.push_back(launch.executable);
    EXPECT_EQ(started, (std::vector<std::string>{"konsole", "kitty", "xdg-terminal-exec"}));

    workspace.installedApplications = {"com.openai.codex"};
    settings.setCodexLaunchMode(CodexLaunchMode::app);
    actions->perform(TileAction::startCodex, item);
    EXPECT_EQ(processes.launches.size(), 3u);
    EXPECT_EQ(workspace.calls.back().operation, FakeWorkspace::Operation::openWithApplication);
}

} // namespace
} // namespace tidewell
