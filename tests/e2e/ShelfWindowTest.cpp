#include "e2e/PostedSignalListener.h"
#include "e2e/RunningApplicationTest.h"
#include "linux/SingleInstanceGuard.h"
#include "support/HeadlessWeston.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr unsigned long black = 0x000000;

class ShelfWindowTest : public RunningApplicationTest {
protected:
    unsigned long pixel(int x, int y) { return inspector.screenPixel(x, y); }

    // Checks what the open shelf shows and where it takes the pointer, with three tiles.
    void expectDrawnOutlineAndClickThrough() {
        const WindowRect window = inspector.rootGeometry(panel);
        ASSERT_EQ(window, panelGeometry(3));
        const int frameLeft = window.x + shadowMargin;
        const int frameRight = frameLeft + window.width - 2 * shadowMargin; // one past the end
        const int bodyLeft = frameLeft + 8;
        const int bodyRight = frameRight - 8;
        const int bodyBottom = topInset + 88; // one past the end
        ASSERT_TRUE(waitUntilExpanded()) << "the body never reached its lower edge";
        // On a busy machine the window's shape can trail its drawing by a frame or two.
        waitUntil([&] {
            return pixel(frameLeft + 6, 6) == desktopColour &&
                   pixel(frameRight - 7, 6) == desktopColour &&
                   pixel(bodyLeft, bodyBottom - 1) == desktopColour &&
                   pixel(bodyRight - 1, bodyBottom - 1) == desktopColour;
        });
        EXPECT_EQ(pixel(window.x + window.width / 2, 10), black) << "the body's top centre";
        EXPECT_EQ(pixel(bodyLeft + 3, 60), black) << "inside the left side";
        EXPECT_EQ(pixel(frameLeft + 6, 0), black) << "the left flare at the top edge";
        EXPECT_EQ(pixel(frameRight - 7, 0), black) << "the right flare at the top edge";
        EXPECT_EQ(pixel(frameLeft + 6, 6), desktopColour) << "under the left flare";
        EXPECT_EQ(pixel(frameRight - 7, 6), desktopColour) << "under the right flare";
        EXPECT_EQ(pixel(bodyLeft, bodyBottom - 1), desktopColour) << "the lower-left corner";
        EXPECT_EQ(pixel(bodyRight - 1, bodyBottom - 1), desktopColour) << "the lower-right corner";
        EXPECT_EQ(pixel(window.x + 1, window.height - 2), desktopColour) << "the shadow margin";
        EXPECT_EQ(pixel(window.x + window.width / 2, window.height + 4), desktopColour)
            << "below the window";

        // Beside the body, inside the window's rectangle: the click goes to what lies below.
        hand.movePointerTo(frameLeft + 2, 60);
        hand.click(1);
        EXPECT_TRUE(hand.waitForButtonPress(desktop, 3s)) << "the press did not reach the desktop";
    }
};

TEST_F(ShelfWindowTest, ASecondStartShowsTheRunningShelfForAMomentAndEndsQuietly) {
    addProject("alpha");
    startApplication();
    ASSERT_FALSE(
        SingleInstanceGuard::acquire(DataFolder({.home = home, .applicationSupport = dataHome})))
        << "the running application does not hold the lock";
    EXPECT_FALSE(isShelfShown());

    PostedSignalListener listener;
    expectResult(ChildProcess::run({.arguments = {tidewellPath()},
                                    .workingDirectory = home,
                                    .environment = applicationEnvironment()},
                                   10s),
                 "", "", 0);
    EXPECT_TRUE(listener.waitFor("Tidewell.showShelf"));
    ASSERT_TRUE(waitUntil([&] { return isShelfShown(); }));
    const auto shownAt = Clock::now();
    EXPECT_EQ(inspector.rootGeometry(panel), panelGeometry(1));

    // Shown for 2.5 s, then ordered out 0.33 s after the closing transition begins.
    EXPECT_FALSE(waitUntil([&] { return !isShelfShown(); }, 2s)) << "hidden too early";
    EXPECT_TRUE(waitUntil([&] { return !isShelfShown(); }, 3s)) << "still shown";
    const auto shownFor = Clock::now() - shownAt;
    EXPECT_GT(shownFor, 2500ms);
    EXPECT_LT(shownFor, 4500ms);
}

TEST_F(ShelfWindowTest, ThrowingThePointerAgainstTheTopEdgeOpensTheShelfAcrossTheTrigger) {
    addProject("alpha");
    startApplication();
    // The trigger's first, middle and last columns: 180 points at the top centre.
    for (const int x : {870, 960, 1049}) {
        hand.movePointerTo(x, 300);
        hand.movePointerBy(0, -400); // the top edge stops it
        ASSERT_EQ(hand.pointerPosition(), std::pair(x, 0));
        EXPECT_TRUE(waitUntil([&] { return isShelfShown(); })) << "at x = " << x;
        hand.movePointerTo(x, 600);
        EXPECT_TRUE(waitUntil([&] { return !isShelfShown(); })) << "at x = " << x;
    }
}

TEST_F(ShelfWindowTest, APinFromTheCommandLineGrowsTheOpenShelfByOneTile) {
    for (const char* name : {"alpha", "beta", "gamma"})
        addProject(name);
    startApplication();
    ASSERT_TRUE(openShelf());
    EXPECT_TRUE(waitUntil([&] { return inspector.rootGeometry(panel) == panelGeometry(3); }))
        << inspector.rootGeometry(panel);
    // Items that change while the shelf is still opening take effect at the next move.
    ASSERT_TRUE(waitUntilSettled());

    PostedSignalListener listener;
    addProject("delta");
    EXPECT_TRUE(listener.waitFor("Tidewell.itemsChanged"));
    EXPECT_TRUE(waitUntil([&] { return inspector.rootGeometry(panel) == panelGeometry(4); }))
        << inspector.rootGeometry(panel);
    EXPECT_TRUE(isShelfShown());
    EXPECT_EQ(inspector.findWindow("Tidewell Shelf"), panel) << "the panel was made anew";
}

TEST_F(ShelfWindowTest, HoverOpensTheDrawnOutlineWhichLetsClicksThroughWithAndWithoutCompositor) {
    for (const char* name : {"alpha", "beta", "gamma"})
        addProject(name);
    startApplication();
    ASSERT_FALSE(inspector.hasCompositor());
    ASSERT_TRUE(openShelf());
    expectDrawnOutlineAndClickThrough();

    // The pointer away from the shelf closes it.
    hand.movePointerTo(screenWidth / 2, 600);
    EXPECT_TRUE(waitUntil([&] { return !isShelfShown(); }));

    ChildProcess compositor({.arguments = {"xcompmgr"},
                             .workingDirectory = "/",
                             .environment = {{"DISPLAY", display.name()}}});
    ASSERT_TRUE(waitUntil([&] { return inspector.hasCompositor(); }));
    ASSERT_TRUE(openShelf());
    expectDrawnOutlineAndClickThrough();
    hand.movePointerTo(screenWidth / 2, 600);
    EXPECT_TRUE(waitUntil([&] { return !isShelfShown(); }));
    // Drawn by the processor: an OpenGL driver would be most of the process's memory.
    std::ifstream maps("/proc/" + std::to_string(application->pid()) + "/maps");
    const std::string mapped{std::istreambuf_iterator<char>(maps), {}};
    EXPECT_EQ(mapped.find("/dri/"), std::string::npos) << "an OpenGL driver is loaded";
}

// In a Wayland session whose compositor has no layer shell, with XWayland's display beside it
// (here Xvfb's), the application chooses X11 with a trigger window at the top centre.
TEST_F(ShelfWindowTest, WithoutLayerShellTheTriggerWindowOpensTheShelfAndLetsClicksBesideIt) {
    addProject("alpha");
    const HeadlessWeston weston(runtimeFolder);
    startApplication({{"WAYLAND_DISPLAY", weston.socket}, {"XDG_SESSION_TYPE", "wayland"}});
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
}

} // namespace
} // namespace tidewell::testing
