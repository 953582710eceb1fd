#include "core/shelf/ShelfLayout.h"

#include "core/shelf/ShelfMeasurements.h"
#include "core/shelf/StripScroll.h"
#include "support/FakeMainQueue.h"

#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace tidewell::testing {
namespace {

// Each change as observers find it: the expanded size and whether a slot is reserved.
using Snapshot = std::pair<Size, bool>;

class ShelfLayoutTest : public ::testing::Test {
protected:
    ShelfLayoutTest() {
        layout.setTopInset(32);
        layout.setAvailableWidth(1000);
        observation = layout.changed.connect([this] {
            seen.push_back({layout.expandedSize(), layout.isReservingSlot()});
        });
    }

    FakeClock clock;
    FakeMainQueue queue{clock};
    ShelfLayout layout{queue};
    std::vector<Snapshot> seen;
    Connection observation;
};

TEST_F(ShelfLayoutTest, ReservingTwiceGrowsOnceClearingClosesTheSlotAndVoidsClears) {
    layout.reserveFolderSlot(3);
    layout.reserveFolderSlot(3);
    EXPECT_EQ(seen, (std::vector<Snapshot>{{{323, 120}, false}, {{323, 120}, true}}));
    EXPECT_EQ(layout.size(3), (Size{323, 120}));
    EXPECT_EQ(layout.slotClearGeneration(), 0u);
    // A display of no known width limits nothing.
    EXPECT_EQ(ShelfLayout::sizeFor(30, 0, 32), ShelfLayout::sizeFor(30, 1e6, 32));
    EXPECT_EQ(shelfSize({.frame = {{0, 0}, {1920, 1080}}}, layout, 40).width, 1856);

    seen.clear();
    layout.clearFolderSlot(3);
    layout.clearFolderSlot(4); // nothing reserved: still recomputed and counted
    EXPECT_EQ(seen, (std::vector<Snapshot>{
                        {{323, 120}, false}, {{257, 120}, false}, {{323, 120}, false}}));
    EXPECT_EQ(layout.slotClearGeneration(), 2u);
}

using StripScrollTest = ShelfLayoutTest;

TEST_F(StripScrollTest, TheWheelAndDropsScrollWithinTheTilesUntilTheShelfCloses) {
    layout.setIsBackgroundExpanded(true);
    StripScroll scroll(layout);
    int changes = 0;
    const Connection connection = scroll.changed.connect([&] { ++changes; });
    // 40 tiles, 27 and a bit of them in view: at most 843 points to scroll.
    scroll.setExtent(40 * 66 - 6, 1791);
    const std::tuple<const char*, std::function<void()>, double> steps[] = {
        {"a notch down", [&] { scroll.wheel(0, -120); }, 66},
        {"a notch left", [&] { scroll.wheel(120, 0); }, 0},
        {"a touchpad's right", [&] { scroll.wheel(-12, 0); }, 6.6},
        {"far down", [&] { scroll.wheel(0, -12000); }, 843},
        {"a drop before the start", [&] { scroll.reveal(600, 666); }, 600},
        {"a drop behind the end", [&] { scroll.reveal(2500, 2566); }, 775},
        {"a span wider than the strip", [&] { scroll.reveal(100, 2000); }, 100},
        {"fewer tiles", [&] { scroll.setExtent(1850, 1791); }, 59},
        {"the shelf stays open", [&] { layout.setIsExpanded(false); }, 59},
        {"the shelf shrinks into the notch", [&] { layout.setIsBackgroundExpanded(false); }, 0},
    };
    for (const auto& [step, action, offset] : steps) {
        action();
        EXPECT_DOUBLE_EQ(scroll.offset(), offset) << step;
    }
    EXPECT_EQ(changes, 9);
}

} // namespace
} // namespace tidewell::testing
