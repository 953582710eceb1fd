#include "linux/PosixProcessLauncher.h"

#include "core/platform/Error.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <thread>
#include <unistd.h>

namespace tidewell {
namespace {

using namespace std::chrono_literals;

std::string messageOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return "no error";
}

// A detached program is a real process that reports on its own time.
std::string waitForFile(const std::string& path) {
    const auto deadline = std::chrono::steady_clock::now() + 10s;
    while (!std::filesystem::exists(path) && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(10ms);
    std::ifstream file(path);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

TEST(PosixProcessLauncher, RunAndWaitReturnsTheExitStatus) {
    testing::ScopedEnvironment environment;
    environment.set("TIDEWELL_TEST_MARK", "inherited");
    PosixProcessLauncher launcher;
    EXPECT_EQ(launcher.runAndWait("true", {}), 0);
    EXPECT_EQ(launcher.runAndWait("sh", {"-c", "exit 7"}), 7);
    EXPECT_EQ(launcher.runAndWait("sh", {"-c", "kill -TERM $$"}), 128 + 15);
    EXPECT_EQ(launcher.runAndWait("sh", {"-c", "test \"$TIDEWELL_TEST_MARK\" = inherited"}), 0);
    EXPECT_EQ(launcher.runAndWait("/bin/sh", {"-c", "exit 3", "ignored"}), 3);
}

TEST(PosixProcessLauncher, ProgramsThatCannotStartAreErrors) {
    PosixProcessLauncher launcher;
    EXPECT_EQ(messageOf([&] { launcher.runAndWait("tidewell-no-such-program", {}); }),
              "Cannot start tidewell-no-such-program: No such file or directory");
    EXPECT_EQ(messageOf([&] { launcher.startDetached("tidewell-no-such-program", {"x"}); }),
              "Cannot start tidewell-no-such-program: No such file or directory");
    testing::TemporaryDirectory folder;
    const std::string notExecutable = folder.write("script.sh", "exit 0\n");
    EXPECT_EQ(messageOf([&] { launcher.runAndWait(notExecutable, {}); }),
              "Cannot start " + notExecutable + ": Permission denied");
}

TEST(PosixProcessLauncher, DetachedProgramsGetANewSessionAndAClearedEnvironment) {
    testing::TemporaryDirectory folder;
    testing::ScopedEnvironment environment;
    environment.set("DESKTOP_AUTOSTART_ID", "autostart-token");
    environment.set("DESKTOP_STARTUP_ID", "startup-token");
    environment.set("XDG_ACTIVATION_TOKEN", "activation-token");
    environment.set("DESKTOP_STARTUP_ID_NOT", "kept");
    environment.set("TIDEWELL_TEST_MARK", "kept");
    const std::string script =
        folder.write("report.sh", "{\n"
                                  "  echo \"pid $$\"\n"
                                  "  echo \"sid $(ps -o sid= $$)\"\n"
                                  "  echo \"stdin $(readlink /proc/$$/fd/0)\"\n"
                                  "  env\n"
                                  "} > \"$1.part\"\n"
                                  "mv \"$1.part\" \"$1\"\n");
    const std::string report = folder.path() + "/report";

    PosixProcessLauncher().startDetached("sh", {script, report});
    std::istringstream lines(waitForFile(report));
    std::string pid, sid, stdinTarget, line;
    std::vector<std::string> variables;
    lines >> line >> pid >> line >> sid >> line >> stdinTarget;
    while (std::getline(lines, line))
        variables.push_back(line);

    ASSERT_FALSE(pid.empty());
    EXPECT_EQ(sid, pid) << "the program leads a session of its own";
    EXPECT_NE(sid, std::to_string(::getsid(0)));
    EXPECT_EQ(stdinTarget, "/dev/null");
    auto has = [&](const std::string& entry) {
        return std::find(variables.begin(), variables.end(), entry) != variables.end();
    };
    EXPECT_TRUE(has("TIDEWELL_TEST_MARK=kept"));
    EXPECT_TRUE(has("DESKTOP_STARTUP_ID_NOT=kept"));
    EXPECT_FALSE(has("DESKTOP_AUTOSTART_ID=autostart-token"));
    EXPECT_FALSE(has("DESKTOP_STARTUP_ID=startup-token"));
    EXPECT_FALSE(has("XDG_ACTIVATION_TOKEN=activation-token"));
}

} // namespace
} // namespace tidewell
