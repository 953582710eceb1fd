#include "e2e/EndToEndTest.h"
#include "linux/SingleInstanceGuard.h"
#include "support/HeadlessWeston.h"

#include <algorithm>
#include <filesystem>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

using ApplicationStartTest = EndToEndTest;

// Each failed start says why in one line; the tool works all the same. The user interface is
// loaded from beside the program or from the library folder of its prefix: a copy of the
// program in a folder of its own finds neither.
TEST_F(ApplicationStartTest, FailedStartsSayWhyInOneLineAndShowStartsTheApplication) {
    const PostedSignals signals(environment());
    const std::string program = root.makeFolder("alone") + "/tidewell";
    std::filesystem::copy_file(tidewellPath(), program);
    const ProcessResult alone = ChildProcess::run(launch(program, {}, home), 5s);
    EXPECT_EQ(alone.standardOutput, "");
    EXPECT_TRUE(alone.standardError.starts_with("tidewell: cannot load the user interface: "))
        << alone.standardError;
    EXPECT_EQ(std::ranges::count(alone.standardError, '\n'), 1);
    EXPECT_TRUE(alone.standardError.ends_with("\n"));
    EXPECT_EQ(alone.status, 1);
    EXPECT_TRUE(std::filesystem::is_regular_file(dataFolder() + "/app.lock"));

    const HeadlessWeston weston(runtimeFolder);
    const std::map<std::string, std::string> noLayerShell = {{"WAYLAND_DISPLAY", weston.socket}};
    for (const auto& [variables, line] :
         std::vector<std::pair<std::map<std::string, std::string>, std::string>>{
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
    EXPECT_TRUE(signals.received().empty());

    const auto running =
        SingleInstanceGuard::acquire(DataFolder({.home = home, .applicationSupport = dataHome}));
    ASSERT_TRUE(running) << "the lock a running application holds";
    expectResult(ChildProcess::run(launch(tidePath(), {"show", "ignored"}, home), 5s), "", "", 0);
    EXPECT_EQ(readFile(dataFolder() + "/.showOnLaunch"), "");
    // The started application finds the lock held and asks the running one to show its shelf.
    EXPECT_TRUE(signals.waitFor("Tidewell.showShelf"));
}

} // namespace
} // namespace tidewell::testing
