#include "core/shelf/ShelfMeasurements.h"

#include "support/FakeClock.h"
#include "support/FakeMainQueue.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tidewell::testing {
namespace {

// A 1440 × 900 display beside the main one, so that no edge is at zero.
Display displayWithMenuBar(double menuBarHeight) {
    const Rect frame{{1920, 0}, {1440, 900}};
    return {.frame = frame, .visibleFrame = {{1920, 0}, {1440, 900 - menuBarHeight}}};
}

Rect topStripArea(double height) {
    return {{1920, 900 - height}, {600, height}};
}

TEST(ShelfMeasurements, TopInsetIsTheTallestTopStripInWholePointsAndAtLeast28) {
    struct Case {
        std::string name;
        Display display;
        double expected;
    };
    auto withSafeTop = [](double top) {
        Display display = displayWithMenuBar(24);
        display.safeAreaTop = top;
        return display;
    };
    auto withNotch = [](double leftHeight, double rightHeight) {
        Display display = displayWithMenuBar(24);
        display.auxiliaryTopLeftArea = topStripArea(leftHeight);
        display.auxiliaryTopRightArea = topStripArea(rightHeight);
        return display;
    };
    const std::vector<Case> cases = {
        {"24-point menu bar", displayWithMenuBar(24), 28},
        {"tall menu bar", displayWithMenuBar(33.4), 33},
        {"37.5 safe top rounds away from zero", withSafeTop(37.5), 38},
        {"taller left area", withNotch(37.6, 32), 38},
        {"taller right area", withNotch(32, 34.2), 34},
    };
    for (const auto& c : cases)
        EXPECT_EQ(topInset(c.display), c.expected) << c.name;
}

TEST(ShelfMeasurements, ShelfSizeIsLimitedByTheDisplayWidthAndCountsTheReservedSlot) {
    FakeClock clock;
    FakeMainQueue queue(clock);
    ShelfLayout layout(queue);
    layout.setTopInset(32);
    layout.setAvailableWidth(210); // the stored limit is not the display's
    const Display wide = displayWithMenuBar(24);
    Display narrow = wide;
    narrow.frame.size.width = 300.8 + 64;

    EXPECT_EQ(shelfSize(wide, layout, 3), (Size{257, 120}));
    EXPECT_EQ(shelfSize(narrow, layout, 5), (Size{300, 120}));
    layout.reserveFolderSlot(3);
    EXPECT_EQ(shelfSize(wide, layout, 3), (Size{323, 120}));
}

} // namespace
} // namespace tidewell::testing
