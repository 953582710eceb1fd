#include "e2e/EndToEndTest.h"
#include "support/VirtualDisplay.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <thread>

namespace tidewell::testing {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

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

// The ids of the running processes that pass the test, given their folder in /proc.
std::vector<pid_t> processes(const std::function<bool(const fs::path&)>& test) {
    std::vector<pid_t> found;
    for (const auto& entry : fs::directory_iterator("/proc")) {
        const std::string name = entry.path().filename();
        if (name.find_first_not_of("0123456789") == std::string::npos && test(entry.path()))
            found.push_back(std::stoi(name));
    }
    return found;
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

    ChildProcess::Launch probe(const std::vector<std::string>& arguments) const {
        ChildProcess::Launch probe =
            launch(buildFolder() + "/tests/tidewell_terminal_probe", arguments, root.path());
        probe.environment["DISPLAY"] = display.name();
        return probe;
    }

    // The xterms this test started: their command lines name the test's folder.
    std::vector<pid_t> terminals() const {
        return processes([&](const fs::path& process) {
            const std::string commandLine = readFile(process / "cmdline").value_or("");
            return commandLine.starts_with(std::string("xterm") + '\0') &&
                   commandLine.find(root.path()) != std::string::npos;
        });
    }

    VirtualDisplay display;
};

TEST_F(TerminalLaunchTest, OpenInTerminalLeavesAShellInTheFolderThatOutlivesItsStarter) {
    const std::string folder = project("it's here");
    const ProcessResult result = ChildProcess::run(probe({"open-in-terminal", folder}), 30s);
    ASSERT_EQ(result.status, 0) << result.standardError;
    ASSERT_TRUE(eventually([&] { return terminals().size() == 1; }));
    // The terminal's shell is the one program that goes to the folder.
    EXPECT_TRUE(eventually([&] {
        return processes([&](const fs::path& process) {
                   std::error_code unreadable;
                   return fs::read_symlink(process / "cwd", unreadable) == folder;
               }).size() == 1;
    }));
    EXPECT_EQ(::kill(terminals().front(), 0), 0)
        << "the terminal ended with the process that started it";
}

TEST_F(TerminalLaunchTest, AStartCommandOfTwoLinesRunsFromAScriptRemovedTenSecondsLater) {
    const std::string folder = project("two lines");
    const std::string marker = root.path() + "/marker";
    ChildProcess starter(
        probe({"run-start-command", folder,
               "echo first > '" + marker + "'\npwd >> '" + marker + "'", "--stay-for-cleanup"}));
    const auto marked = [&] { return readFile(marker).value_or(""); };
    ASSERT_TRUE(eventually([&] { return marked() == "first\n" + folder + "\n"; })) << marked();
    auto scripts = [&] {
        std::vector<std::string> names;
        for (const std::string& name : entries(runtimeFolder))
            if (name.starts_with("tidewell-cmd-") && name.ends_with(".sh"))
                names.push_back(name);
        return names;
    };
    EXPECT_EQ(scripts().size(), 1u);

    const ProcessResult result = starter.wait(30s);
    EXPECT_EQ(result.status, 0) << result.standardError;
    EXPECT_TRUE(scripts().empty());
}

} // namespace
} // namespace tidewell::testing
