#include "core/launch/TerminalLauncher.h"

#include "linux/PosixFileSystem.h"
#include "support/FakeExecutableLocator.h"
#include "support/FakeMainQueue.h"
#include "support/FakeProcessLauncher.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <regex>

namespace tidewell {
namespace {

using namespace std::chrono_literals;
using testing::FakeClock;
using testing::FakeExecutableLocator;
using testing::FakeMainQueue;
using testing::FakeProcessLauncher;
using testing::TemporaryDirectory;

bool isScriptName(const std::string& name) {
    static const std::regex form("tidewell-cmd-[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\\.sh");
    return std::regex_match(name, form);
}

class TerminalLauncherTest : public ::testing::Test {
protected:
    TerminalLauncher launcher(const std::string& shell = "/bin/bash") {
        return TerminalLauncher({files, processes, executables, queue, shell, scripts.path()});
    }
    // The text the shell runs, which is always the last argument.
    std::string shellLine() const {
        return processes.launches.empty() ? "" : processes.launches.back().arguments.back();
    }
    std::vector<std::string> scriptFiles() const {
        std::vector<std::string> names;
        for (const auto& entry : files.list(scripts.path()))
            names.push_back(entry.name);
        return names;
    }

    TemporaryDirectory scripts;
    PosixFileSystem files;
    FakeProcessLauncher processes;
    FakeExecutableLocator executables;
    FakeClock clock;
    FakeMainQueue queue{clock};
};

TEST_F(TerminalLauncherTest, LineQuotesTheFolderAndKeepsTheCommandAsWritten) {
    struct Case {
        std::string command, folder, expected;
    };
    const std::vector<Case> cases = {
        {"", "/Users/a/it's", "cd '/Users/a/it'\\''s'"},
        {"npm run dev", "/p", "cd '/p' && npm run dev"},
        {"   ", "/p", "cd '/p' &&    "},
        {R"(echo "a\b" 'c')", "/p q", R"(cd '/p q' && echo "a\b" 'c')"},
    };
    executables.installed = {"xterm"};
    for (const auto& [command, folder, expected] : cases) {
        EXPECT_EQ(TerminalLauncher::line(command, folder), expected) << command;
        launcher().run(command, folder, TerminalApp::automatic);
        EXPECT_EQ(shellLine(), expected + "\nexec '/bin/bash' -i") << command;
    }
    EXPECT_EQ(TerminalLauncher::singleQuoted("''"), "''\\'''\\'''");
}

TEST_F(TerminalLauncherTest, EachEmulatorGetsItsOwnCommandLine) {
    struct Case {
        TerminalApp choice;
        std::string executable;
        std::vector<std::string> options;
    };
    const std::vector<Case> cases = {
        {TerminalApp::terminal, "xdg-terminal-exec", {}},
        {TerminalApp::gnomeTerminal, "gnome-terminal", {"--"}},
        {TerminalApp::kitty, "kitty", {}},
        {TerminalApp::wezterm, "wezterm", {"start", "--"}},
        {TerminalApp::xterm, "xterm", {"-e"}},
    };
    for (const auto& [choice, executable, options] : cases) {
        executables.installed = {executable};
        auto expected = options;
        expected.insert(expected.end(),
                        {"/usr/bin/zsh", "-i", "-c", "cd '/p' && make\nexec '/usr/bin/zsh' -i"});
        launcher("/usr/bin/zsh").run("make", "/p", choice);
        ASSERT_FALSE(processes.launches.empty());
        EXPECT_EQ(processes.launches.back(),
                  (FakeProcessLauncher::Launch{executable, expected, true}));
    }
    executables.installed = {"foot"};
    EXPECT_EQ(
        launcher("").commandLine(TerminalApp::foot, "cd '/p'"),
        (std::vector<std::string>{"foot", "/bin/sh", "-i", "-c", "cd '/p'\nexec '/bin/sh' -i"}));
}

TEST_F(TerminalLauncherTest, MissingChoicesFallBackToTheDesktopDefault) {
    struct Case {
        std::set<std::string> installed;
        TerminalApp choice;
        TerminalApp resolved;
        std::string started; // empty when nothing can be started
    };
    const std::vector<Case> cases = {
        {{"xdg-terminal-exec", "x-terminal-emulator", "kitty"},
         TerminalApp::automatic,
         TerminalApp::terminal,
         "xdg-terminal-exec"},
        {{"kitty", "xterm"}, TerminalApp::automatic, TerminalApp::kitty, "kitty"},
        {{"xterm", "kitty"}, TerminalApp::terminal, TerminalApp::kitty, "kitty"},
        {{"xdg-terminal-exec"}, TerminalApp::wezterm, TerminalApp::terminal, "xdg-terminal-exec"},
        {{"foot", "xterm"}, TerminalApp::wezterm, TerminalApp::foot, "foot"},
        {{}, TerminalApp::xterm, TerminalApp::terminal, ""},
    };
    for (const auto& [installed, choice, resolved, started] : cases) {
        executables.installed = installed;
        processes.launches.clear();
        EXPECT_EQ(launcher().resolved(choice), resolved) << started;
        launcher().run("", "/p", choice);
        if (started.empty()) {
            EXPECT_TRUE(processes.launches.empty());
            EXPECT_TRUE(launcher().commandLine(choice, "cd '/p'").empty());
        } else {
            ASSERT_EQ(processes.launches.size(), 1u) << started;
            EXPECT_EQ(processes.launches[0].executable, started);
            EXPECT_TRUE(processes.launches[0].isDetached);
        }
    }
}

TEST_F(TerminalLauncherTest, CommandsOfSeveralLinesRunFromAPrivateScript) {
    struct Case {
        std::string shell, command, sourceCommand;
    };
    const std::vector<Case> cases = {
        {"/bin/bash", "npm install\nnpm start", "source"},
        {"/bin/dash", "a\nb", "."},
        {"/bin/sh", "echo one\recho two", "."},
    };
    executables.installed = {"xterm"};
    for (const auto& [shell, command, sourceCommand] : cases) {
        launcher(shell).run(command, "/it's", TerminalApp::xterm);
        const auto names = scriptFiles();
        ASSERT_EQ(names.size(), 1u);
        EXPECT_TRUE(isScriptName(names[0])) << names[0];
        const std::string path = scripts.path() + "/" + names[0];
        EXPECT_EQ(files.readFile(path), TerminalLauncher::line(command, "/it's"));
        EXPECT_EQ(std::filesystem::status(path).permissions(),
                  std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
        EXPECT_EQ(shellLine(), sourceCommand + " " + TerminalLauncher::singleQuoted(path) +
                                   "\nexec '" + shell + "' -i");
        queue.advance(10s);
    }
}

TEST_F(TerminalLauncherTest, ScriptIsDeletedTenSecondsLaterEvenWhenNothingStarted) {
    executables.installed = {"xterm"};
    for (const bool startFails : {false, true}) {
        if (startFails)
            processes.startFailure = "cannot start xterm";
        launcher().run("a\nb", "/p", TerminalApp::automatic);
        ASSERT_EQ(scriptFiles().size(), 1u);
        queue.advance(9900ms);
        EXPECT_EQ(scriptFiles().size(), 1u);
        queue.advance(100ms);
        EXPECT_TRUE(scriptFiles().empty());
    }
    // A script removed by someone else is no failure.
    launcher().run("a\nb", "/p", TerminalApp::automatic);
    files.removeFile(scripts.path() + "/" + scriptFiles().at(0));
    EXPECT_NO_THROW(queue.advance(10s));
}

TEST_F(TerminalLauncherTest, UnwritableScriptFolderLaunchesNothing) {
    executables.installed = {"xterm"};
    TerminalLauncher({files, processes, executables, queue, "/bin/bash", scripts.path() + "/gone"})
        .run("a\nb", "/p", TerminalApp::automatic);
    EXPECT_TRUE(processes.launches.empty());
    EXPECT_EQ(queue.pendingCount(), 0u);
}

} // namespace
} // namespace tidewell
