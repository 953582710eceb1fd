#include "DropFixture.h"
#include "core/drag/ShelfContainerDrop.h"
#include "core/drag/ShelfDragReset.h"
#include "core/drag/ShelfGapDrop.h"
#include "core/drag/ShelfTileDrop.h"

#include <functional>

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
    bool isGapOpen() const { return state.folderDropPosition() && layout.isReservingSlot(); }
    void closeGap() {
        layout.clearFolderSlot(3);
        state.setFolderDropPosition(std::nullopt, true);
    }
};

TEST_F(FolderHoverTest, TheLastTileTakesTheGapBehindItPastTheThresholds) {
    for (const auto& [tile, x, expected] : {std::tuple{1, 44.5, Position::before(ids[1])},
                                            std::tuple{2, 44.0, Position::before(ids[2])},
                                            std::tuple{2, 44.5, Position::after(ids[2])}}) {
        closeGap();
        hover(tile, x);
        EXPECT_EQ(state.folderDropPosition(), expected) << tile << " " << x;
        EXPECT_TRUE(state.isPositionChangeAnimated());
    }
    // Behind the last tile, the gap stays down to 16.0 and then moves in front of it, once
    // the pointer has travelled 52 points.
    const std::tuple<double, double, Position> steps[] = {{600, 16.0, Position::after(ids[2])},
                                                          {551.9, 15.9, Position::after(ids[2])},
                                                          {552, 15.9, Position::before(ids[2])}};
    for (const auto& [pointerX, x, expected] : steps) {
        pointer.where = {pointerX, 860};
        hover(2, x);
        EXPECT_EQ(state.folderDropPosition(), expected) << pointerX;
    }
    EXPECT_FALSE(state.isPositionChangeAnimated());
    EXPECT_EQ(state.lastFolderHoverPointer(), (Point{552, 860}));

    // A position with the same insertion point leaves the gap and the hover point alone.
    state.setFolderDropPosition(Position::after(ids[0]), true);
    hover(1, 30);
    EXPECT_EQ(state.folderDropPosition(), Position::after(ids[0]));
    EXPECT_EQ(state.lastFolderHoverPointer(), (Point{552, 860}));
}

TEST_F(FolderHoverTest, APendingCloseWaitsOnTheButtonAndYieldsToAHoverOrAPointerNearby) {
    const auto movePointer = [&](Point to) { return [&, to] { pointer.where = to; }; };
    // A close after zero milliseconds: the gap stays open.
    const std::tuple<const char*, unsigned, std::function<void()>, double,
                     std::chrono::milliseconds>
        cases[] = {
            {"released", 0, [] {}, 1, 90ms},
            {"held", Pointer::primaryButton, [] {}, 1, 400ms},
            {"tile hovered", 0, [&] { hover(1, 30); }, 1, 0ms},
            {"gap entered", 0, [&] { ShelfGapDrop(context()).dropEntered(folderAt(30)); }, 1, 0ms},
            {"container updated", 0,
             [&] { ShelfContainerDrop(context()).dropUpdated(folderAt(30)); }, 1, 0ms},
            {"container entered", 0,
             [&] { ShelfContainerDrop(context()).dropEntered(folderAt(30)); }, 1, 90ms},
            // The panel spans x 400..800 and y 800..920; its margins are 16 and 14 points.
            {"pointer within the margins", 0, movePointer({384, 933.9}), 1, 0ms},
            {"pointer left of the margin", 0, movePointer({383.9, 786}), 1, 90ms},
            {"pointer below the margin", 0, movePointer({600, 785.9}), 1, 90ms},
            {"panel faded out", 0, movePointer({600, 850}), 0.01, 90ms},
        };
    for (const auto& [name, buttons, meanwhile, alpha, closesAfter] : cases) {
        pointer.buttons = buttons;
        // Opens the gap in front of A, moves the pointer off the panel and leaves the tile.
        hover(0, 30);
        pointer.where = {100, 100};
        ShelfTileDrop(ids[0], context()).dropExited(folderAt(30));
        meanwhile();
        panel.setAlpha(alpha);
        queue.advance((closesAfter == 0ms ? 400ms : closesAfter) - 1ns);
        EXPECT_TRUE(isGapOpen()) << name;
        queue.advance(1ns);
        EXPECT_EQ(isGapOpen(), closesAfter == 0ms) << name;
        if (closesAfter != 0ms) {
            EXPECT_FALSE(state.lastFolderHoverPointer()) << name;
            EXPECT_TRUE(state.isPositionChangeAnimated()) << name << ": the gap closes slowly";
            EXPECT_EQ(layout.expandedSize(), layout.size(3, 0)) << name;
        }
        closeGap();
    }
}

TEST_F(FolderHoverTest, ClosingTheShelfClearsTheDragAndReleasesTheSlot) {
    layout.setIsExpanded(true);
    const ShelfDragReset reset(layout, state);
    state.setDraggedItemID(ids[1]);
    hover(0, 30);
    state.setIsCommittingFolderDrop(true);
    layout.setIsExpanded(false);
    EXPECT_FALSE(state.draggedItemID() || layout.isReservingSlot() || state.folderDropPosition() ||
                 state.lastFolderHoverPointer() || state.isCommittingFolderDrop());
}

} // namespace
} // namespace tidewell::testing
