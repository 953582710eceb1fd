#include "e2e/EndToEndTest.h"
#include "e2e/PostedSignalListener.h"
#include "linux/SingleInstanceGuard.h"
#include "support/HeadlessWeston.h"

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

TEST_F(ApplicationStartTest, WithoutAWindowSystemTheStartFailsWithOneLineAndTheToolWorks) {
    const HeadlessWeston weston(runtimeFolder);
    const std::map<std::string, std::string> noLayerShell = {{"WAYLAND_DISPLAY", weston.socket}};
    struct Case {
        std::map<std::string, std::string> variables;
        std::string line;
    };
    for (const auto& [variables, line] : std::vector<Case>{
             {noLayerShell, "tidewell: no window system: the Wayland compositor has no layer "
                            "shell and DISPLAY is not set for XWayland\n"},
             {{}, "tidewell: no window system: neither WAYLAND_DISPLAY nor DISPLAY is set\n"},
         }) {
        ChildProcess::Launch start = launch(tidewellPath(), {}, home);
        start.environment.insert(variables.begin(), variables.end());
        expectResult(ChildProcess::run(start), "", line, 1);
    }
    ChildProcess::Launch list = launch(tidePath(), {"list"}, home);
    list.environment.insert(noLayerShell.begin(), noLayerShell.end());
    expectResult(ChildProcess::run(list), "", "", 0);
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
