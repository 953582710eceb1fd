#include "e2e/EndToEndTest.h"
#include "e2e/PostedSignalListener.h"
#include "linux/SingleInstanceGuard.h"

#include <algorithm>
#include <filesystem>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

class ApplicationStartTest : public EndToEndTest {
protected:
    PostedSignalListener listener;
};

// The user interface is loaded from beside the program or from the library folder of its
// prefix; a copy of the program in a folder of its own finds neither.
TEST_F(ApplicationStartTest, WithoutTheUserInterfaceLibraryTheStartFailsWithOneLine) {
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
    const auto running =
        SingleInstanceGuard::acquire(DataFolder({.home = home, .applicationSupport = dataHome}));
    ASSERT_TRUE(running) << "the lock a running application holds";
    expectResult(ChildProcess::run(launch(tidePath(), {"show", "ignored"}, home), 5s), "", "", 0);
    EXPECT_EQ(readFile(dataFolder() + "/.showOnLaunch"), "");
    // The started application finds the lock held and asks the running one to show its shelf.
    EXPECT_TRUE(listener.waitFor("Tidewell.showShelf"));
}

} // namespace
} // namespace tidewell::testing
