#include "e2e/EndToEndTest.h"
#include "e2e/PostedSignalListener.h"
#include "linux/SingleInstanceGuard.h"

#include <algorithm>
#include <filesystem>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

constexpr const char* showShelf = "Tidewell.showShelf";

class ApplicationStartTest : public EndToEndTest {
protected:
    // What a running application holds.
    std::unique_ptr<SingleInstanceGuard> runningApplication() const {
        return SingleInstanceGuard::acquire(
            DataFolder({.home = home, .applicationSupport = dataHome}));
    }

    PostedSignalListener listener;
};

TEST_F(ApplicationStartTest, ASecondStartAsksTheRunningOneToShowItsShelfAndEndsQuietly) {
    const auto running = runningApplication();
    ASSERT_TRUE(running);
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{}, {"-psn_0_1"}})
        expectResult(ChildProcess::run(launch(tidewellPath(), arguments, home), 5s), "", "", 0);
    EXPECT_TRUE(listener.waitFor(showShelf, 2));
    EXPECT_EQ(listener.received(), std::vector<std::string>(2, showShelf));
    EXPECT_FALSE(readFile(itemsFile()));
}

// The user interface is loaded from beside the program or from the installed library
// folder; a copy of the program in a folder of its own finds none beside it.
TEST_F(ApplicationStartTest, WithoutTheUserInterfaceLibraryTheStartFailsWithOneLine) {
    if (std::filesystem::exists(TIDEWELL_GUI_LIBRARY_DIR "/libtidewell-gui.so"))
        GTEST_SKIP() << "a user interface is installed on this machine";
    const std::string program = root.makeFolder("alone") + "/tidewell";
    std::filesystem::copy_file(tidewellPath(), program);

    const ProcessResult result = ChildProcess::run(launch(program, {}, home), 5s);
    EXPECT_EQ(result.standardOutput, "");
    EXPECT_TRUE(result.standardError.starts_with("tidewell: cannot load the user interface: "))
        << result.standardError;
    EXPECT_EQ(std::count(result.standardError.begin(), result.standardError.end(), '\n'), 1);
    EXPECT_TRUE(result.standardError.ends_with("\n"));
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(std::filesystem::is_regular_file(dataFolder() + "/app.lock"));
    EXPECT_TRUE(listener.received().empty());
}

TEST_F(ApplicationStartTest, ShowLeavesTheFlagAndStartsTheApplication) {
    const auto running = runningApplication();
    ASSERT_TRUE(running);
    expectResult(ChildProcess::run(launch(tidePath(), {"show", "ignored"}, home), 5s), "", "", 0);
    EXPECT_EQ(readFile(dataFolder() + "/.showOnLaunch"), "");
    // The started application finds the lock held and asks the running one to show its shelf.
    EXPECT_TRUE(listener.waitFor(showShelf));
}

} // namespace
} // namespace tidewell::testing
