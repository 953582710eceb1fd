#include "core/launch/TerminalLauncher.h"

#include "linux/PosixFileSystem.h"
#include "support/FakeExecutableLocator.h"
#include "support/FakeMainQueue.h"
#include "support/FakeProcessLauncher.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using namespace std::chrono_literals;
using testing::FakeProcessLauncher;

class TerminalLauncherTest : public ::testing::Test {
protected:
    TerminalLauncher launcher(const std::string& shell = "/bin/bash") {
        return TerminalLauncher({files, processes, executables, queue, shell, scripts.path()});
    }

    testing::TemporaryDirectory scripts;
    PosixFileSystem files;
    FakeProcessLauncher processes;
    testing::FakeExecutableLocator executables;
    testing::FakeClock clock;
    testing::FakeMainQueue queue{clock};
};

TEST_F(TerminalLauncherTest, EachEmulatorRunsTheQuotedLineInAShellThatStays) {
    const std::tuple<TerminalApp, std::string, std::vector<std::string>> cases[] = {
        {TerminalApp::terminal, "xdg-terminal-exec", {}},
        {TerminalApp::gnomeTerminal, "gnome-terminal", {"--"}},
        {TerminalApp::wezterm, "wezterm", {"start", "--"}},
        {TerminalApp::xterm, "xterm", {"-e"}},
    };
    for (const auto& [choice, executable, options] : cases) {
        executables.installed = {executable};
        auto expected = options;
        expected.insert(expected.end(), {"/usr/bin/zsh", "-i", "-c",
                                         "cd '/p q' && echo \"a\\b\" 'c'\nexec '/usr/bin/zsh' -i"});
        launcher("/usr/bin/zsh").run(R"(echo "a\b" 'c')", "/p q", choice);
        EXPECT_EQ(processes.launches.back(),
                  (FakeProcessLauncher::Launch{executable, expected, true}));
    }
    EXPECT_EQ(TerminalLauncher::line("", "/a/it's"), "cd '/a/it'\\''s'");
    EXPECT_EQ(TerminalLauncher::line("   ", "/p"), "cd '/p' &&    ");
    executables.installed = {"foot"};
    EXPECT_EQ(
        launcher("").commandLine(TerminalApp::foot, "cd '/p'"),
        (std::vector<std::string>{"foot", "/bin/sh", "-i", "-c", "cd '/p'\nexec '/bin/sh' -i"}));
}

TEST_F(TerminalLauncherTest, MissingChoicesFallBackToTheDesktopDefault) {
    using enum TerminalApp;
    // The last column names the program started, empty when none can be.
    const std::tuple<std::set<std::string>, TerminalApp, TerminalApp, std::string> cases[] = {
        {{"xdg-terminal-exec", "x-terminal-emulator", "kitty"},
         automatic,
         terminal,
         "xdg-terminal-exec"},
        {{"kitty", "xterm"}, automatic, kitty, "kitty"},
        {{"xterm", "kitty"}, terminal, kitty, "kitty"},
        {{"foot", "xterm"}, wezterm, foot, "foot"},
        {{}, xterm, terminal, ""},
    };
    for (const auto& [installed, choice, resolved, started] : cases) {
        executables.installed = installed;
        processes.launches.clear();
        EXPECT_EQ(launcher().resolved(choice), resolved) << started;
        launcher().run("", "/p", choice);
        EXPECT_EQ(processes.launches.empty() ? "" : processes.launches[0].executable, started);
    }
}

// Lines of several lines run from a private script, which goes ten seconds later whether or
// not the terminal started; without a place for it nothing starts.
TEST_F(TerminalLauncherTest, CommandsOfSeveralLinesRunFromAPrivateScript) {
    const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
        {"/bin/bash", "npm install\nnpm start", "source", ""},
        {"/bin/dash", "a\nb", ".", "cannot start xterm"},
        {"/bin/sh", "echo one\recho two", ".", ""},
    };
    executables.installed = {"xterm"};
    for (const auto& [shell, command, sourceCommand, startFailure] : cases) {
        processes.launches.clear();
        processes.startFailure = startFailure.empty() ? std::nullopt : std::optional(startFailure);
        launcher(shell).run(command, "/it's", TerminalApp::xterm);
        ASSERT_EQ(files.list(scripts.path()).size(), 1u);
        const std::string path = scripts.path() + "/" + files.list(scripts.path())[0].name;
        EXPECT_EQ(files.readFile(path), TerminalLauncher::line(command, "/it's"));
        EXPECT_EQ(std::filesystem::status(path).permissions(),
                  std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
        const std::string shellLine = sourceCommand + " '" + path + "'\nexec '" + shell + "' -i";
        EXPECT_EQ(processes.launches.empty() ? "" : processes.launches.back().arguments.back(),
                  startFailure.empty() ? shellLine : "");
        queue.advance(9900ms);
        EXPECT_EQ(files.list(scripts.path()).size(), 1u);
        queue.advance(100ms);
        EXPECT_TRUE(files.list(scripts.path()).empty());
    }
    processes.launches.clear();
    TerminalLauncher({files, processes, executables, queue, "/bin/bash", scripts.path() + "/gone"})
        .run("a\nb", "/p", TerminalApp::automatic);
    EXPECT_TRUE(processes.launches.empty());
    EXPECT_EQ(queue.pendingCount(), 0u);
}

} // namespace
} // namespace tidewell
