#include "e2e/EndToEndTest.h"

namespace tidewell::testing {
namespace {

// The primary display, and a larger one 200 pixels lower, left of it and later right of it.
// The larger one starts on the left: with no display at the X screen's left edge, openbox
// keeps windows out of the primary's top 200 rows (it takes the empty corner for a strut
// and misplaces it).
const Monitor primary{"P", 2560, 0, 1920, 1080};
const Monitor left{"R", 0, 200, 2560, 1440};
const Monitor right{"R", 4480, 200, 2560, 1440};

int centreX(const Monitor& screen) {
    return screen.x + screen.width / 2;
}

class TwoDisplaysTest : public RunningApplicationTest {
protected:
    TwoDisplaysTest() : RunningApplicationTest({primary, left}, 7040, 1640) {}

    // Waits until the shelf of three tiles is open at the top centre of the screen, drawn at its
    // scale: the opening has run its course, and only now does it follow requests and changes.
    bool isShownOn(const Monitor& screen, int scale) {
        const WindowRect expected =
            panelGeometry(3, {screen.x, screen.y, screen.width, screen.height}, scale);
        const bool shown = waitUntil([&] { return inspector.rootGeometry(panel) == expected; }) &&
                           waitUntilOpen(scale, screen.y);
        EXPECT_TRUE(shown) << "on " << screen.name << " at " << inspector.rootGeometry(panel)
                           << ", not " << expected;
        return shown;
    }

    // Opens the shelf on the screen from the trigger's first column and checks, in device
    // pixels, the corner cut from its outline and where it takes the pointer.
    void expectOutlineAtScale(const Monitor& screen, int scale) {
        hand.movePointerTo(centreX(screen) - 90 * scale, screen.y);
        if (!isShownOn(screen, scale))
            return;
        const int left = inspector.rootGeometry(panel).x + scale * shadowMargin;
        const int bottom = scale * (topInset + 88); // one past the body
        EXPECT_EQ(inspector.screenPixel(left + scale * 8, screen.y + bottom - 1), desktopColour)
            << "the lower-left corner";
        EXPECT_TRUE(contains(inspector.inputShape(panel), scale * (shadowMargin + 20), bottom - 4))
            << "the body's lower part takes the pointer";
    }
};

// The shelf and its outline keep their sizes in points, and the trigger its place, on a display
// at twice the pixels a point beside one at one pixel a point. The shelf opens on the
// display under the pointer and follows the displays as they come and go.
TEST_F(TwoDisplaysTest, TheShelfOpensOnTheDisplayUnderThePointerAtItsScaleAndFollowsTheDisplays) {
    for (const char* name : {"alpha", "beta", "gamma"})
        addProject(name);
    startApplication({{"QT_SCREEN_SCALE_FACTORS", "P=1;R=2"}});

    // The open shelf goes from one display to the other.
    expectOutlineAtScale(primary, 1);
    expectOutlineAtScale(left, 2);

    // The display under the open shelf goes: the shelf goes to the primary display. It comes
    // back right of the primary, and the shelf opens there.
    hand.movePointerTo(centreX(left), left.y);
    isShownOn(left, 2);
    display.removeMonitor("R");
    isShownOn(primary, 1);
    display.addMonitor(right);
    // Moves made there before the application has learnt of the display go unnoticed, and
    // a display that appears opens nothing by itself: the hand moves on, as hands do.
    int nudge = 0;
    waitUntil([&] {
        hand.movePointerTo(centreX(right) + nudge++ % 2, right.y);
        return inspector.rootGeometry(panel).x >= right.x;
    });
    isShownOn(right, 2);
}

} // namespace
} // namespace tidewell::testing
