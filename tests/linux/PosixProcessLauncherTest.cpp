#include "linux/PosixProcessLauncher.h"

#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"
#include "support/WaitUntil.h"

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

namespace tidewell::testing {

using namespace std::chrono_literals;

TEST(PosixProcessLauncher, DetachedProgramsGetANewSessionAndAClearedEnvironmentWaitedOnesAStatus) {
    TemporaryDirectory folder;
    ScopedEnvironment environment;
    for (const char* name : {"DESKTOP_AUTOSTART_ID", "DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN",
                             "DESKTOP_STARTUP_ID_NOT", "TIDEWELL_TEST_MARK"})
        environment.set(name, "set");
    const std::string report = folder.path() + "/report";
    // The report appears whole, by renaming, so it is never read half written.
    PosixProcessLauncher().startDetached("sh", {"-c",
                                                "{ echo $$; ps -o sid= -p $$ | tr -d ' '; "
                                                "readlink /proc/$$/fd/0; env | grep =set | sort; } "
                                                "> \"$0.part\" && mv \"$0.part\" \"$0\"",
                                                report});

    // A detached program is a real process that reports on its own time.
    ASSERT_TRUE(waitUntil([&] { return std::filesystem::exists(report); }, 10s));
    const std::string text = readFile(report).value_or("");
    const std::string pid = text.substr(0, text.find('\n'));
    EXPECT_NE(pid, std::to_string(::getsid(0)));
    EXPECT_EQ(text, pid + "\n" + pid +
                        "\n/dev/null\nDESKTOP_STARTUP_ID_NOT=set\nTIDEWELL_TEST_MARK=set\n");

    // What a waited-on program ends with comes back as a shell reports it: its code, or 128 +
    // its signal.
    EXPECT_EQ(PosixProcessLauncher().runAndWait("sh", {"-c", "exit 3"}), 3);
    EXPECT_EQ(PosixProcessLauncher().runAndWait("sh", {"-c", "kill -TERM $$"}), 128 + SIGTERM);
}

} // namespace tidewell::testing
