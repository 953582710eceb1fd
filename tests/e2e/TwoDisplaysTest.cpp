#include "e2e/RunningApplicationTest.h"

namespace tidewell::testing {
namespace {

constexpr unsigned long black = 0x000000;

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

    // Waits until the shelf is open at the top centre of the screen, drawn down to its lower
    // edge, and its first icon has faded in: the opening has run its course, and only now
    // does the shelf follow requests and changes.
    bool isShownOn(const Monitor& screen, int scale) {
        const WindowRect expected =
            panelGeometry(3, {screen.x, screen.y, screen.width, screen.height}, scale);
        const int lowerEdgeY = screen.y + scale * (topInset + 88) - 2;
        const int iconX = expected.x + scale * (shadowMargin + 44);
        const bool shown = waitUntilSteady([&] {
            const bool drawn = isShelfShown() && inspector.rootGeometry(panel) == expected &&
                               inspector.screenPixel(expected.x + scale * (shadowMargin + 38),
                                                     lowerEdgeY) == black;
            return drawn ? inspector.screenPixel(iconX, screen.y + scale * 58) : black;
        });
        EXPECT_TRUE(shown) << "on " << screen.name << " at " << inspector.rootGeometry(panel)
                           << ", not " << expected;
        return shown;
    }

    // The pointer onto the screen's top row opens the shelf there; away from it, it closes.
    void openAndCloseFromTopRow(const Monitor& screen, int x, int scale) {
        hand.movePointerTo(x, screen.y);
        EXPECT_TRUE(isShownOn(screen, scale)) << "from x = " << x;
        hand.movePointerTo(x, screen.y + 700);
        EXPECT_TRUE(waitUntil([&] { return !isShelfShown(); })) << "from x = " << x;
    }

    // Opens the shelf of three tiles on the screen, drawn at `scale` device pixels a point,
    // checks its outline, where it takes the pointer and where its icons lie, and returns
    // how many pixels of the first icon are drawn white (its initials).
    int expectDrawnAtScale(const Monitor& screen, int scale) {
        hand.movePointerTo(centreX(screen) - 90 * scale, screen.y); // the trigger's first column
        if (!isShownOn(screen, scale))
            return 0;
        // In device pixels from the shelf's top-left corner.
        const int left = inspector.rootGeometry(panel).x + scale * shadowMargin;
        const auto pixel = [&](int x, int y) {
            return inspector.screenPixel(left + x, screen.y + y);
        };
        const int bottom = scale * (topInset + 88); // one past the body
        const int iconMiddle = scale * 58;
        EXPECT_EQ(pixel(scale * 6, 0), black) << "the left flare at the top edge";
        EXPECT_EQ(pixel(scale * 6, scale * 6), desktopColour) << "under the left flare";
        EXPECT_EQ(pixel(scale * 8, bottom - 1), desktopColour) << "the lower-left corner";
        EXPECT_TRUE(inspector.inputShape(panel).contains(scale * (shadowMargin + 20), bottom - 4))
            << "the body's lower part takes the pointer";
        for (int tile = 0; tile < 3; ++tile) {
            const int icon = scale * (14 + 66 * tile + 10); // 40 points wide, 26 between two
            EXPECT_EQ(pixel(icon - 2, iconMiddle), black) << "left of icon " << tile;
            EXPECT_NE(pixel(icon + 1, iconMiddle), black) << "icon " << tile << "'s left edge";
            EXPECT_NE(pixel(icon + scale * 40 - 2, iconMiddle), black) << "its right edge";
            EXPECT_EQ(pixel(icon + scale * 40 + 1, iconMiddle), black) << "right of it";
        }
        int white = 0;
        for (const unsigned long colour : inspector.screenArea(
                 {left + scale * 24, screen.y + scale * 38, scale * 40, scale * 40}))
            white += (colour & 0xE0E0E0) == 0xE0E0E0;
        return white;
    }
};

// Tiles, gaps, type and outline keep their sizes in points, and the trigger its place, on a
// display at twice the pixels a point beside one at one pixel a point. The shelf opens on the
// display under the pointer and follows the displays as they come and go.
TEST_F(TwoDisplaysTest, TheShelfOpensOnTheDisplayUnderThePointerAtItsScaleAndFollowsTheDisplays) {
    for (const char* name : {"alpha", "beta", "gamma"})
        addProject(name);
    startApplication({{"QT_SCREEN_SCALE_FACTORS", "P=1;R=2"}});

    // The top row of each display: the primary's centre, and the first, middle and last
    // columns of the other's trigger.
    openAndCloseFromTopRow(primary, centreX(primary), 1);
    for (const int x : {centreX(left) - 180, centreX(left), centreX(left) + 179})
        openAndCloseFromTopRow(left, x, 2);

    // The open shelf goes from one display to the other.
    const int whiteAtOne = expectDrawnAtScale(primary, 1);
    ASSERT_GT(whiteAtOne, 0) << "no initials drawn";
    const int whiteAtTwo = expectDrawnAtScale(left, 2);
    // About four times the pixels; hinting thins the strokes at one pixel a point.
    EXPECT_GT(whiteAtTwo, 3 * whiteAtOne) << "initials of " << whiteAtOne << " pixels at 1";
    EXPECT_LT(whiteAtTwo, 6 * whiteAtOne) << "initials of " << whiteAtOne << " pixels at 1";

    // The display under the open shelf goes: the shelf goes to the primary display. It comes
    // back right of the primary, and the shelf opens there.
    hand.movePointerTo(centreX(left), left.y);
    isShownOn(left, 2);
    display.removeMonitor("R");
    isShownOn(primary, 1);
    display.addMonitor(right);
    hand.movePointerTo(centreX(right), right.y);
    isShownOn(right, 2);
}

} // namespace
} // namespace tidewell::testing
