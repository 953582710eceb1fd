#include "DropFixture.h"
#include "core/drag/ShelfTileDrop.h"
#include "core/drag/TileDragActions.h"

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
    // Nothing is saved before the drop.
    const ItemStore fresh{{database, localCenter, distributedCenter, queue, workspace}};
    EXPECT_EQ(names(fresh.favorites()), (Names{"A", "B", "C"}));
}

} // namespace
} // namespace tidewell::testing
