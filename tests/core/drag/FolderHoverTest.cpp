#include "DropFixture.h"
#include "core/drag/ShelfContainerDrop.h"
#include "core/drag/ShelfDragReset.h"
#include "core/drag/ShelfGapDrop.h"
#include "core/drag/ShelfTileDrop.h"

#include <functional>
#include <gtest/gtest.h>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;
using Position = ShelfDropPosition;

class FolderHoverTest : public DropFixture {
protected:
    FolderHoverTest() { pointer.where = {500, 860}; }

    void hover(std::size_t tile, double x) {
        ShelfTileDrop(ids[tile], context()).dropUpdated(folderAt(x));
    }
    // Opens the gap in front of A, then moves the pointer off the panel and leaves the tile.
    void openGapAndLeave() {
        hover(0, 30);
        pointer.where = {100, 100};
        ShelfTileDrop(ids[0], context()).dropExited(folderAt(30));
    }
    bool isGapOpen() const { return state.folderDropPosition() && layout.isReservingSlot(); }
};

TEST_F(FolderHoverTest, TheLastTileTakesTheGapBehindItPastTheThresholds) {
    for (const auto& [x, expected] :
         {std::pair{44.0, Position::before(ids[2])}, std::pair{44.5, Position::after(ids[2])}}) {
        state.setFolderDropPosition(std::nullopt, true);
        layout.clearFolderSlot(3);
        hover(2, x);
        EXPECT_EQ(state.folderDropPosition(), expected) << x;
        EXPECT_TRUE(layout.isReservingSlot());
        EXPECT_TRUE(state.isPositionChangeAnimated());
        EXPECT_EQ(layout.expandedSize(), layout.size(4, 0));
    }

    // Behind the last tile, the gap stays down to 16.0 and then moves in front of it, once
    // the pointer has travelled 52 points.
    pointer.where = {600, 860};
    hover(2, 16.0);
    EXPECT_EQ(state.folderDropPosition(), Position::after(ids[2]));
    pointer.where = {551.9, 860};
    hover(2, 15.9);
    EXPECT_EQ(state.folderDropPosition(), Position::after(ids[2]));
    pointer.where = {552, 860};
    hover(2, 15.9);
    EXPECT_EQ(state.folderDropPosition(), Position::before(ids[2]));
    EXPECT_FALSE(state.isPositionChangeAnimated());
    EXPECT_EQ(state.lastFolderHoverPointer(), (Point{552, 860}));
}

TEST_F(FolderHoverTest, APositionWithTheSameInsertionPointLeavesGapAndHoverPointAlone) {
    state.setFolderDropPosition(Position::after(ids[0]), true);
    state.setLastFolderHoverPointer(Point{0, 0});
    hover(1, 30); // before(B) inserts where after(A) does
    EXPECT_EQ(state.folderDropPosition(), Position::after(ids[0]));
    EXPECT_EQ(state.lastFolderHoverPointer(), (Point{0, 0}));
}

TEST_F(FolderHoverTest, LeavingClosesTheGapAfterADelayThatDependsOnTheButton) {
    for (const auto& [buttons, delay] :
         {std::pair{Pointer::primaryButton, 400ms}, std::pair{0u, 90ms}}) {
        pointer.buttons = buttons;
        openGapAndLeave();
        queue.advance(delay - 1ns);
        EXPECT_TRUE(isGapOpen()) << delay.count();
        queue.advance(1ns);
        EXPECT_FALSE(isGapOpen()) << delay.count();
        EXPECT_FALSE(state.lastFolderHoverPointer());
        EXPECT_EQ(layout.expandedSize(), layout.size(3, 0));
    }
}

TEST_F(FolderHoverTest, APendingCloseYieldsToAHoverAndToAPointerNearThePanel) {
    const auto movePointer = [&](Point to) { return [&, to] { pointer.where = to; }; };
    const struct {
        const char* name;
        std::function<void()> meanwhile;
        double alpha;
        bool keepsGap;
    } cases[] = {
        {"tile hovered", [&] { hover(1, 30); }, 1, true},
        {"gap entered", [&] { ShelfGapDrop(context()).dropEntered(folderAt(30)); }, 1, true},
        {"container updated", [&] { ShelfContainerDrop(context()).dropUpdated(folderAt(30)); }, 1,
         true},
        {"container entered", [&] { ShelfContainerDrop(context()).dropEntered(folderAt(30)); }, 1,
         false},
        // The panel spans x 400..800 and y 800..920; its margins are 16 and 14 points.
        {"pointer within the margins", movePointer({384, 933.9}), 1, true},
        {"pointer past the margins", movePointer({383.9, 786}), 1, false},
        {"panel faded out", movePointer({600, 850}), 0.01, false},
    };
    for (const auto& c : cases) {
        openGapAndLeave();
        c.meanwhile();
        panel.setAlpha(c.alpha);
        queue.advance(90ms);
        EXPECT_EQ(isGapOpen(), c.keepsGap) << c.name;
        layout.clearFolderSlot(3);
        state.setFolderDropPosition(std::nullopt, true);
    }
}

TEST_F(FolderHoverTest, ClosingTheShelfClearsTheDragAndReleasesTheSlot) {
    layout.setIsExpanded(true);
    const ShelfDragReset reset(layout, state);
    state.setDraggedItemID(ids[1]);
    hover(0, 30);
    state.setIsCommittingFolderDrop(true);
    layout.setIsExpanded(false);
    EXPECT_EQ(state.draggedItemID(), std::nullopt);
    EXPECT_FALSE(isGapOpen() || state.folderDropPosition() || state.lastFolderHoverPointer() ||
                 state.isCommittingFolderDrop());
}

} // namespace
} // namespace tidewell::testing
