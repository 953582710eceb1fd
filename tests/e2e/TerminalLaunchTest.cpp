#include "e2e/EndToEndTest.h"
#include "support/VirtualDisplay.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <thread>

namespace tidewell::testing {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

std::string fileText(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Waits (bounded: real programs are starting) until the condition holds.
bool eventually(const std::function<bool()>& condition, std::chrono::seconds limit = 15s) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(50ms);
    }
    return true;
}

// The tile actions run through the real terminal launcher into a real xterm on a real X
// server, as a click on the shelf would.
class TerminalLaunchTest : public EndToEndTest {
protected:
    TerminalLaunchTest() {
        root.write("config/Tidewell/Tidewell.conf", "[General]\npreferredTerminalApp=xterm\n");
    }
    ~TerminalLaunchTest() override {
        for (const pid_t pid : terminals())
            ::kill(pid, SIGKILL);
    }

    ProcessResult probe(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), buildFolder() + "/tests/tidewell_terminal_probe");
        auto environment = this->environment();
        environment["DISPLAY"] = display.name();
        return ChildProcess::run({arguments, root.path(), environment}, 30s);
    }

    static std::vector<fs::path> processes() {
        std::vector<fs::path> found;
        for (const auto& entry : fs::directory_iterator("/proc"))
            if (entry.path().filename().string().find_first_not_of("0123456789") ==
                std::string::npos)
                found.push_back(entry.path());
        return found;
    }

    // The xterms this test started: their command lines name the test's folder.
    std::vector<pid_t> terminals() const {
        std::vector<pid_t> found;
        for (const fs::path& process : processes()) {
            const std::string name = process.filename();
            const std::string commandLine = fileText(process / "cmdline");
            if (commandLine.starts_with(std::string("xterm") + '\0') &&
                commandLine.find(root.path()) != std::string::npos)
                found.push_back(std::stoi(name));
        }
        return found;
    }

    // The working folders of the programs the xterm runs (its shell).
    static std::vector<std::string> childFolders(pid_t terminal) {
        std::vector<std::string> folders;
        for (const fs::path& process : processes()) {
            const std::string stat = fileText(process / "stat");
            const std::size_t end = stat.rfind(')');
            if (end == std::string::npos)
                continue;
            std::istringstream fields(stat.substr(end + 2));
            std::string state;
            pid_t parent = 0;
            fields >> state >> parent;
            std::error_code ignored;
            if (parent == terminal)
                folders.push_back(fs::read_symlink(process / "cwd", ignored));
        }
        return folders;
    }

    VirtualDisplay display;
};

TEST_F(TerminalLaunchTest, OpenInTerminalLeavesAShellInTheFolderThatOutlivesItsStarter) {
    const std::string folder = project("it's here");
    const ProcessResult result = probe({"open-in-terminal", folder});
    ASSERT_EQ(result.status, 0) << result.standardError;
    ASSERT_TRUE(eventually([&] { return terminals().size() == 1; }));
    const pid_t terminal = terminals().front();
    EXPECT_TRUE(eventually([&] {
        const auto folders = childFolders(terminal);
        return folders.size() == 1 && folders.front() == folder;
    }));
    EXPECT_EQ(::kill(terminal, 0), 0) << "the terminal ended with the process that started it";
}

TEST_F(TerminalLaunchTest, TheStartCommandRunsInTheFolder) {
    const std::string folder = project("app");
    const std::string marker = root.path() + "/marker";
    const ProcessResult result = probe({"run-start-command", folder, "pwd > '" + marker + "'"});
    ASSERT_EQ(result.status, 0) << result.standardError;
    EXPECT_TRUE(eventually([&] { return fileText(marker) == folder + "\n"; })) << fileText(marker);
}

TEST_F(TerminalLaunchTest, AStartCommandOfTwoLinesRunsFromAScriptRemovedTenSecondsLater) {
    const std::string folder = project("two lines");
    const std::string marker = root.path() + "/marker";
    ChildProcess starter(
        {{buildFolder() + "/tests/tidewell_terminal_probe", "run-start-command", folder,
          "echo first > '" + marker + "'\npwd >> '" + marker + "'", "--stay-for-cleanup"},
         root.path(),
         [&] {
             auto environment = this->environment();
             environment["DISPLAY"] = display.name();
             return environment;
         }()});
    ASSERT_TRUE(eventually([&] { return fileText(marker) == "first\n" + folder + "\n"; }))
        << fileText(marker);
    auto scripts = [&] {
        std::vector<std::string> names;
        for (const std::string& name : entries(runtimeFolder))
            if (name.starts_with("tidewell-cmd-") && name.ends_with(".sh"))
                names.push_back(name);
        return names;
    };
    ASSERT_EQ(scripts().size(), 1u);
    EXPECT_EQ(fs::status(runtimeFolder + "/" + scripts().front()).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write);

    const ProcessResult result = starter.wait(30s);
    EXPECT_EQ(result.status, 0) << result.standardError;
    EXPECT_TRUE(scripts().empty());
}

} // namespace
} // namespace tidewell::testing
