#include "core/shelf/ShelfLayout.h"

#include "support/FakeClock.h"
#include "support/FakeMainQueue.h"

#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

// What observers find in the layout each time it announces a change.
struct Snapshot {
    Size expandedSize;
    bool isReservingSlot;
    bool operator==(const Snapshot&) const = default;
};

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

TEST_F(ShelfLayoutTest, SizeGrowsByTilePitchWithinTheAvailableWidth) {
    struct Case {
        std::string name;
        double availableWidth;
        int favoritesCount;
        std::optional<int> reservingSlot;
        Size expected;
    };
    const std::vector<Case> cases = {
        {"empty shelf keeps the minimum width", 1000, 0, 0, {200, 120}},
        {"three items", 1000, 3, 0, {257, 120}},
        {"limit truncated to whole points", 300.8, 5, 0, {300, 120}},
        {"no known limit", 0, 30, 0, {30 * 66 + 59, 120}},
        {"limit below the minimum width", 150, 5, 0, {200, 120}},
    };
    for (const auto& c : cases) {
        layout.setAvailableWidth(c.availableWidth);
        EXPECT_EQ(layout.size(c.favoritesCount, c.reservingSlot), c.expected) << c.name;
    }
}

TEST_F(ShelfLayoutTest, ReservingTwiceGrowsOnceAndTheSizeComesBeforeTheFlag) {
    layout.reserveFolderSlot(3);
    layout.reserveFolderSlot(3);
    EXPECT_EQ(seen, (std::vector<Snapshot>{{{323, 120}, false}, {{323, 120}, true}}));
    EXPECT_EQ(layout.size(3), (Size{323, 120}));
    EXPECT_EQ(layout.slotClearGeneration(), 0u);
}

TEST_F(ShelfLayoutTest, ClearingClosesTheSlotRecomputesTheSizeAndVoidsClears) {
    layout.reserveFolderSlot(3);
    seen.clear();
    layout.clearFolderSlot(3);
    EXPECT_EQ(seen, (std::vector<Snapshot>{{{323, 120}, false}, {{257, 120}, false}}));
    EXPECT_EQ(layout.slotClearGeneration(), 1u);

    seen.clear();
    layout.clearFolderSlot(4); // nothing reserved: still recomputed and counted
    EXPECT_EQ(seen, (std::vector<Snapshot>{{{323, 120}, false}}));
    EXPECT_EQ(layout.slotClearGeneration(), 2u);
}

TEST_F(ShelfLayoutTest, ScheduledClearRunsAfterItsDelayUnlessVoided) {
    struct Case {
        std::string name;
        std::function<void()> meanwhile;
        std::vector<std::string> expected;
    };
    const std::vector<Case> cases = {
        {"not voided", [] {}, {"cleared"}},
        {"voided by an increment", [&] { layout.voidScheduledSlotClears(); }, {}},
        {"voided by clearing", [&] { layout.clearFolderSlot(0); }, {}},
    };
    for (const auto& c : cases) {
        std::vector<std::string> cleared;
        const auto generation = layout.slotClearGeneration();
        layout.scheduleSlotClear(300ms, [&] { cleared.push_back("cleared"); });
        EXPECT_EQ(layout.slotClearGeneration(), generation) << c.name;
        queue.advance(100ms);
        c.meanwhile();
        queue.advance(199ms);
        EXPECT_TRUE(cleared.empty()) << c.name;
        queue.advance(1ms);
        EXPECT_EQ(cleared, c.expected) << c.name;
        queue.advance(1s);
        EXPECT_EQ(cleared, c.expected) << c.name;
    }
}

} // namespace
} // namespace tidewell::testing
