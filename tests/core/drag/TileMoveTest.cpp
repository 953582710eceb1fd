#include "DropFixture.h"
#include "core/drag/ShelfTileDrop.h"
#include "core/drag/TileDragActions.h"

#include <gtest/gtest.h>

namespace tidewell::testing {
namespace {

using Names = std::vector<std::string>;

class TileMoveTest : public DropFixture {
protected:
    TileMoveTest() { TileDragActions::dragBegan(dragContext, ids[0]); }

    void enter(std::size_t target) {
        ShelfTileDrop(ids[target], context()).dropEntered(tileMove());
    }

    ShelfDropContext dragContext = context();
};

TEST_F(TileMoveTest, ATileTakesTheEnteredPlaceOnceUntilThePointerTravels30Points) {
    pointer.where = {500, 860};
    enter(0); // itself
    EXPECT_EQ(favoriteNames(), (Names{"A", "B", "C"}));
    enter(1);
    EXPECT_EQ(favoriteNames(), (Names{"B", "A", "C"}));

    // The tiles slide under a pointer that barely moves.
    pointer.where = {529.9, 860};
    enter(2);
    EXPECT_EQ(favoriteNames(), (Names{"B", "A", "C"}));
    pointer.where = {530, 860};
    enter(2);
    EXPECT_EQ(favoriteNames(), (Names{"B", "C", "A"}));
    EXPECT_EQ(state.lastReorderPointer(), (Point{530, 860}));

    ShelfTileDrop drop(ids[1], context());
    pointer.where = {900, 860};
    EXPECT_EQ(drop.dropUpdated(tileMove()), DropOperation::move);
    EXPECT_EQ(favoriteNames(), (Names{"B", "C", "A"}));
    EXPECT_EQ(drop.dropUpdated(folderAt(30)), DropOperation::copy);
    EXPECT_EQ(favoriteNamesInFile(), (Names{"A", "B", "C"}));
}

TEST_F(TileMoveTest, DroppingOnATileSavesTheOrderOnceAndIsRefusedWithoutADrag) {
    enter(1);
    const int postsBefore = deliveredLocalPosts();
    ShelfTileDrop drop(ids[2], context());

    EXPECT_TRUE(drop.performDrop(tileMove(), {}));
    EXPECT_EQ(deliveredLocalPosts(), postsBefore + 1);
    EXPECT_EQ(favoriteNamesInFile(), (Names{"B", "A", "C"}));
    EXPECT_FALSE(state.draggedItemID());
    EXPECT_FALSE(state.lastReorderPointer());

    EXPECT_FALSE(drop.performDrop(tileMove(), {}));
    EXPECT_EQ(deliveredLocalPosts(), postsBefore + 1);
}

TEST_F(TileMoveTest, ADragEndingInsideSavesTheOrderAndOneEndingOutsideUnpins) {
    enter(1);
    TileDragActions::dragEnded(dragContext);
    EXPECT_EQ(favoriteNamesInFile(), (Names{"B", "A", "C"}));
    EXPECT_FALSE(state.draggedItemID());
    EXPECT_FALSE(state.lastReorderPointer());

    layout.setExpandedSize(layout.size(3));
    TileDragActions::dragBegan(dragContext, ids[2]);
    TileDragActions::droppedOutside(dragContext, ids[2]);
    EXPECT_EQ(favoriteNamesInFile(), (Names{"B", "A"}));
    EXPECT_EQ(layout.expandedSize(), (Size{200, 120})); // 257 wide for three
    EXPECT_FALSE(state.draggedItemID());
}

TEST_F(TileMoveTest, InsertionPointOfEachDropPosition) {
    const auto favorites = store.favorites();
    const Uuid unknown = Uuid::random();
    const struct {
        const char* name;
        std::optional<ShelfDropPosition> position;
        std::optional<Uuid> expected;
    } cases[] = {
        {"no position", std::nullopt, std::nullopt},
        {"before an item", ShelfDropPosition::before(ids[0]), ids[0]},
        {"after a middle item", ShelfDropPosition::after(ids[1]), ids[2]},
        {"after the last item", ShelfDropPosition::after(ids[2]), std::nullopt},
        {"after an unknown item", ShelfDropPosition::after(unknown), std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ShelfTileDrop::insertionBefore(c.position, favorites), c.expected) << c.name;
}

} // namespace
} // namespace tidewell::testing
