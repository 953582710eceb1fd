#include "e2e/RunningApplicationTest.h"
#include "linux/SingleInstanceGuard.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <regex>

namespace tidewell::testing {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

using ShelfWindowTest = RunningApplicationTest;

// Each failed start says why in one line; the tool works all the same. The user interface is
// loaded from beside the program or from the library folder of its prefix: a copy of the
// program in a folder of its own finds neither. In a Wayland session whose compositor has no
// layer shell, with XWayland's display beside it (here Xvfb's), the application chooses X11
// with a trigger window at the top centre. A second start shows the running one's shelf for a
// moment and ends quietly.
TEST_F(ShelfWindowTest, FailedStartsSayWhyAndWithoutLayerShellATriggerWindowOpensTheShelf) {
    const PostedSignals startSignals(environment());
    const std::string program = root.makeFolder("alone") + "/tidewell";
    fs::copy_file(tidewellPath(), program);

    // A Wayland compositor without layer shell, as GNOME's is: weston on its headless backend.
    const ChildProcess weston(
        {.arguments = {"weston", "--backend=headless-backend.so", "--no-config", "--idle-time=0",
                       "--socket=weston-0"},
         .workingDirectory = "/",
         .environment = {{"PATH", std::getenv("PATH")}, {"XDG_RUNTIME_DIR", runtimeFolder}}});
    ASSERT_TRUE(waitUntil([&] { return fs::exists(runtimeFolder + "/weston-0"); }, 10s));
    const std::map<std::string, std::string> noLayerShell = {{"WAYLAND_DISPLAY", "weston-0"}};
    const struct {
        std::string program;
        std::map<std::string, std::string> variables;
        std::string error; // a pattern
    } failedStarts[] = {
        {program, {}, "tidewell: cannot load the user interface: .+\n"},
        {tidewellPath(), noLayerShell,
         "tidewell: no window system: the Wayland compositor has no layer shell and DISPLAY is "
         "not set for XWayland\n"},
        {tidewellPath(),
         {},
         "tidewell: no window system: neither WAYLAND_DISPLAY nor DISPLAY is set\n"},
    };
    for (const auto& [start, variables, error] : failedStarts) {
        const ProcessResult result = ChildProcess::run(launch(start, {}, home, variables), 5s);
        EXPECT_TRUE(std::regex_match(result.standardError, std::regex(error)))
            << result.standardError;
        EXPECT_EQ(result.standardOutput, "");
        EXPECT_EQ(result.status, 1);
    }
    EXPECT_TRUE(fs::is_regular_file(dataFolder() + "/app.lock"));
    walk({{{"list"}, ""}}, home, noLayerShell);
    EXPECT_TRUE(startSignals.received().empty());

    addProject("alpha");
    auto wayland = noLayerShell;
    wayland["XDG_SESSION_TYPE"] = "wayland";
    startApplication(wayland);
    std::optional<unsigned long> trigger;
    ASSERT_TRUE(waitUntil(
        [&] { return (trigger = inspector.findWindow("Tidewell Trigger")).has_value(); }));
    // Nothing more, the status icon without a status-area host included.
    EXPECT_EQ(application->standardError(),
              "tidewell: window system: X11 under XWayland (the compositor has no layer shell): "
              "the shelf opens from a trigger window\n");
    EXPECT_EQ(inspector.rootGeometry(*trigger), (WindowRect{870, 0, 180, 28}));
    // A window mapped later does not cover the trigger.
    const unsigned long below = hand.createWindow(0, 0, screenWidth, 100);
    // The trigger's corners, the top row included.
    for (const auto& [x, y] : {std::pair(870, 0), std::pair(1049, 0), std::pair(1049, 27)}) {
        hand.movePointerTo(x, y);
        EXPECT_TRUE(waitUntil([&] { return isShelfShown(); })) << x << "," << y;
        // Placed by no window manager: those of Wayland compositors place X windows freely.
        EXPECT_TRUE(std::ranges::count(inspector.viewableOverrideRedirectWindows(), panel));
        hand.movePointerTo(x, 600);
        EXPECT_TRUE(waitUntil([&] { return !isShelfShown(); })) << x << "," << y;
    }
    // Beside it, reached from outside it.
    hand.movePointerTo(869, 0);
    hand.click(1);
    EXPECT_TRUE(hand.waitForButtonPress(below, 3s)) << "the press left of it";
    hand.movePointerTo(1051, 0);
    hand.movePointerBy(-1, 0);
    hand.click(1);
    EXPECT_TRUE(hand.waitForButtonPress(below, 3s)) << "the press right of it";
    EXPECT_FALSE(isShelfShown());

    hand.movePointerTo(screenWidth / 2, 600);
    ASSERT_FALSE(
        SingleInstanceGuard::acquire(DataFolder({.home = home, .applicationSupport = dataHome})))
        << "the running application does not hold the lock";
    const PostedSignals signals(environment());
    expectResult(ChildProcess::run(launch(tidewellPath(), {}, home, applicationEnvironment())), "",
                 "", 0);
    EXPECT_TRUE(signals.waitFor("Tidewell.showShelf"));
    ASSERT_TRUE(waitUntil([&] { return isShelfShown(); }));
    EXPECT_EQ(inspector.rootGeometry(panel), panelGeometry(1));
    EXPECT_TRUE(waitUntil([&] { return !isShelfShown(); })) << "still shown";
}

} // namespace
} // namespace tidewell::testing
