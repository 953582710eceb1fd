#include "DropFixture.h"
#include "core/drag/ShelfTileDrop.h"
#include "core/drag/TileDragActions.h"

#include <gtest/gtest.h>

namespace tidewell::testing {
namespace {

class TileMoveTest : public DropFixture {
protected:
    TileMoveTest() { TileDragActions::dragBegan(dragContext, ids[0]); }

    void enter(std::size_t target, double pointerX) {
        pointer.where = {pointerX, 860};
        ShelfTileDrop(ids[target], context()).dropEntered(tileMove());
    }

    ShelfDropContext dragContext = context();
};

TEST_F(TileMoveTest, ATileTakesTheEnteredPlaceOnceUntilThePointerTravels30Points) {
    enter(0, 500); // itself
    EXPECT_EQ(favoriteNames(), (Names{"A", "B", "C"}));
    enter(1, 500);
    EXPECT_EQ(favoriteNames(), (Names{"B", "A", "C"}));
    // The tiles slide under a pointer that barely moves.
    enter(2, 529.9);
    EXPECT_EQ(favoriteNames(), (Names{"B", "A", "C"}));
    enter(2, 530);
    EXPECT_EQ(favoriteNames(), (Names{"B", "C", "A"}));

    ShelfTileDrop drop(ids[1], context());
    EXPECT_TRUE(drop.validateDrop(tileMove()) && drop.validateDrop(folderAt(30)));
    EXPECT_EQ(drop.dropUpdated(tileMove()), DropOperation::move);
    EXPECT_EQ(drop.dropUpdated(folderAt(30)), DropOperation::copy);
    EXPECT_EQ(favoriteNamesInFile(), (Names{"A", "B", "C"}));
}

// A drop on a tile or the end of the drag inside saves the order once; a drag dropped outside
// unpins its tile.
TEST_F(TileMoveTest, EndingTheDragSavesTheOrderOrUnpins) {
    enter(1, 500);
    const int postsBefore = deliveredLocalPosts();
    ShelfTileDrop drop(ids[2], context());
    EXPECT_TRUE(drop.performDrop(tileMove(), {}));
    EXPECT_FALSE(drop.performDrop(tileMove(), {}));
    EXPECT_EQ(deliveredLocalPosts(), postsBefore + 1);
    EXPECT_EQ(favoriteNamesInFile(), (Names{"B", "A", "C"}));

    TileDragActions::dragBegan(dragContext, ids[0]);
    enter(2, 500);
    TileDragActions::dragEnded(dragContext);
    EXPECT_EQ(favoriteNamesInFile(), (Names{"B", "C", "A"}));
    EXPECT_FALSE(state.draggedItemID() || state.lastReorderPointer());

    layout.setExpandedSize(layout.size(3));
    TileDragActions::dragBegan(dragContext, ids[2]);
    TileDragActions::droppedOutside(dragContext, ids[2]);
    EXPECT_EQ(favoriteNamesInFile(), (Names{"B", "A"}));
    EXPECT_EQ(layout.expandedSize(), layout.size(2));
    EXPECT_FALSE(state.draggedItemID());
}

} // namespace
} // namespace tidewell::testing
