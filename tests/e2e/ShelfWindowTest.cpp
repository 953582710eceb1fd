#include "e2e/RunningApplicationTest.h"
#include "linux/SingleInstanceGuard.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

namespace tidewell::testing {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr unsigned long black = 0x000000;

class ShelfWindowTest : public RunningApplicationTest {
protected:
    unsigned long pixel(int x, int y) { return inspector.screenPixel(x, y); }

    // Checks what the open shelf of three tiles shows and where it takes the pointer; the
    // pointer away from it then closes it.
    void expectDrawnOutlineAndClickThrough() {
        const WindowRect window = inspector.rootGeometry(panel);
        ASSERT_EQ(window, panelGeometry(3));
        const int frameLeft = window.x + shadowMargin;
        const int frameRight = frameLeft + window.width - 2 * shadowMargin; // one past the end
        const int bodyBottom = topInset + 88;                               // one past the end
        const std::pair<int, int> desktopPoints[] = {
            {frameLeft + 6, 6},                                // under the left flare
            {frameRight - 7, 6},                               // under the right flare
            {frameLeft + 8, bodyBottom - 1},                   // the lower-left corner
            {frameRight - 9, bodyBottom - 1},                  // the lower-right corner
            {window.x + 1, window.height - 2},                 // the shadow margin
            {window.x + window.width / 2, window.height + 4}}; // below the window
        // On a busy machine the window's shape can trail its drawing by a frame or two.
        waitUntil([&] {
            return std::ranges::all_of(
                desktopPoints, [&](auto p) { return pixel(p.first, p.second) == desktopColour; });
        });
        for (const auto& [x, y] : desktopPoints)
            EXPECT_EQ(pixel(x, y), desktopColour) << x << "," << y;
        const std::pair<int, int> bodyPoints[] = {{window.x + window.width / 2, 10},
                                                  {frameLeft + 11, 60},
                                                  {frameLeft + 6, 0},
                                                  {frameRight - 7, 0}};
        for (const auto& [x, y] : bodyPoints)
            EXPECT_EQ(pixel(x, y), black) << x << "," << y;

        // Beside the body, inside the window's rectangle: the click goes to what lies below.
        hand.movePointerTo(frameLeft + 2, 60);
        hand.click(1);
        EXPECT_TRUE(hand.waitForButtonPress(desktop, 3s)) << "the press did not reach the desktop";
        hand.movePointerTo(screenWidth / 2, 600);
        EXPECT_TRUE(waitUntil([&] { return !isShelfShown(); }));
    }
};

TEST_F(ShelfWindowTest, ThrowsAndHoverOpenTheDrawnOutlineWhichGrowsByAPinAndLetsClicksThrough) {
    for (const char* name : {"alpha", "beta", "gamma"})
        addProject(name);
    startApplication();
    // The trigger's first, middle and last columns: 180 points at the top centre.
    for (const int x : {870, 960, 1049}) {
        hand.movePointerTo(x, 300);
        hand.movePointerBy(0, -400); // the top edge stops it
        EXPECT_TRUE(waitUntil([&] { return isShelfShown(); })) << "at x = " << x;
        hand.movePointerTo(x, 600);
        EXPECT_TRUE(waitUntil([&] { return !isShelfShown(); })) << "at x = " << x;
    }
    ASSERT_FALSE(inspector.hasCompositor());
    ASSERT_TRUE(openShelf());
    expectDrawnOutlineAndClickThrough();

    ChildProcess compositor({.arguments = {"xcompmgr"},
                             .workingDirectory = "/",
                             .environment = {{"DISPLAY", display.name()}}});
    ASSERT_TRUE(waitUntil([&] { return inspector.hasCompositor(); }));
    ASSERT_TRUE(openShelf());
    expectDrawnOutlineAndClickThrough();

    // Items that change while the shelf is still opening take effect at the next move.
    ASSERT_TRUE(openShelf());
    const PostedSignals signals(environment());
    addProject("delta");
    EXPECT_TRUE(signals.waitFor("Tidewell.itemsChanged"));
    EXPECT_TRUE(panelShows(4)) << inspector.rootGeometry(panel);
    EXPECT_TRUE(isShelfShown());
    EXPECT_EQ(inspector.findWindow("Tidewell Shelf"), panel) << "the panel was made anew";
    // Drawn by the processor: an OpenGL driver would be most of the process's memory.
    std::ifstream maps("/proc/" + std::to_string(application->pid()) + "/maps");
    const std::string mapped{std::istreambuf_iterator<char>(maps), {}};
    EXPECT_EQ(mapped.find("/dri/"), std::string::npos) << "an OpenGL driver is loaded";
}

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
