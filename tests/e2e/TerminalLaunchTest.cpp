#include "e2e/EndToEndTest.h"
#include "support/VirtualDisplay.h"

#include <csignal>
#include <filesystem>

namespace tidewell::testing {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

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

// "Open in terminal" leaves a shell in the folder that outlives its starter; a start command of
// two lines runs from a script that is removed ten seconds later.
TEST_F(TerminalLaunchTest, OpenInTerminalAndAStartCommandOfTwoLinesRunInTheFolder) {
    const std::string folder = project("it's here");
    const ProcessResult result = ChildProcess::run(probe({"open-in-terminal", folder}), 30s);
    ASSERT_EQ(result.status, 0) << result.standardError;
    ASSERT_TRUE(waitUntil([&] { return terminals().size() == 1; }, 15s));
    // The terminal's shell is the one program that goes to the folder.
    EXPECT_TRUE(waitUntil(
        [&] {
            return processes([&](const fs::path& process) {
                       std::error_code unreadable;
                       return fs::read_symlink(process / "cwd", unreadable) == folder;
                   }).size() == 1;
        },
        15s));
    EXPECT_EQ(::kill(terminals().front(), 0), 0)
        << "the terminal ended with the process that started it";

    const std::string other = project("two lines");
    const std::string marker = root.path() + "/marker";
    ChildProcess starter(
        probe({"run-start-command", other, "echo first > '" + marker + "'\npwd >> '" + marker + "'",
               "--stay-for-cleanup"}));
    const auto marked = [&] { return readFile(marker).value_or(""); };
    ASSERT_TRUE(waitUntil([&] { return marked() == "first\n" + other + "\n"; }, 15s)) << marked();
    const auto scripts = [&] {
        std::vector<std::string> names = entries(runtimeFolder);
        std::erase_if(names, [](const std::string& name) {
            return !name.starts_with("tidewell-cmd-") || !name.ends_with(".sh");
        });
        return names.size();
    };
    EXPECT_EQ(scripts(), 1u);
    EXPECT_EQ(starter.wait(30s).status, 0);
    EXPECT_EQ(scripts(), 0u);
}

} // namespace
} // namespace tidewell::testing
