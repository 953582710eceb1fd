#include "wayland/WaylandTest.h"

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

// The test desktop itself, without the application: what the screenshots show, and where the
// virtual pointer's clicks and drags arrive.
class WaylandDesktopTest : public WaylandTest {};

TEST_F(WaylandDesktopTest, ThePointersClicksAndDragsReachTheWindowsTheScreenshotsShow) {
    const std::string folder = project("dragged");
    const auto target = startWindow(1000, 200, 120, 80);
    const auto source = startWindow(200, 300, 120, 80, {folder});

    // Each window's corners inside it, and the background just outside them.
    ASSERT_TRUE(waitUntil([&] {
        const Screenshot shot = desktop.screenshot();
        for (const auto [x, y] : {std::pair(1000, 200), std::pair(200, 300)})
            if (shot.pixel(x, y) != windowColour || shot.pixel(x + 119, y + 79) != windowColour ||
                shot.pixel(x - 1, y) != backgroundColour ||
                shot.pixel(x + 120, y + 79) != backgroundColour ||
                shot.pixel(x, y + 80) != backgroundColour)
                return false;
        return true;
    })) << "the windows are not where they were put";

    hand.moveTo(1010, 205);
    hand.click();
    EXPECT_TRUE(waitForLine(*target, "pressed 10,5")) << target->standardOutput();
    hand.moveTo(1020, 210);
    hand.click(VirtualPointer::Button::right);
    EXPECT_TRUE(waitForLine(*target, "pressed 20,10")) << target->standardOutput();

    hand.moveTo(260, 340);
    hand.press();
    hand.dragTo(1060, 240);
    hand.release();
    EXPECT_TRUE(waitForLine(*target, "dropped file://" + folder)) << target->standardOutput();
    EXPECT_TRUE(waitForLine(*source, "finished copy")) << source->standardOutput();
}

} // namespace
} // namespace tidewell::testing
