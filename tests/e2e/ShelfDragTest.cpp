#include "e2e/RunningApplicationTest.h"
#include "support/PointerDrag.h"

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

using ShelfDragTest = RunningApplicationTest;

// Folders dragged towards the notch open a gap before the hovered tile and are pinned there;
// a tile dragged onto its neighbour takes its place, saved once; one dragged far away is
// unpinned.
TEST_F(ShelfDragTest, FoldersDroppedAreInsertedThenTilesAreReorderedAndDraggedOut) {
    const std::string alpha = addProject("alpha");
    const std::string beta = addProject("beta");
    const std::string gamma = addProject("gamma");
    const std::string first = project("first dropped");
    const std::string file = root.write("notes.txt", "not a folder");
    const std::string second = project("second dropped");
    startApplication();
    const auto source = startDragSource(300, 500, {first, file, second});
    ASSERT_FALSE(isShelfShown());

    // Straight up towards the second tile, below the notch: the widened trigger opens the shelf
    // before the pointer reaches the tiles.
    const int x = panelGeometry(3).x + shadowMargin + 14 + 66 + 30;
    const int y = topInset + 8 + 31;
    {
        PointerDrag drag(hand, 360, 540);
        drag.moveTo(x, 300);
        drag.moveTo(x, 140);
        ASSERT_TRUE(waitUntil([&] { return isShelfShown(); }))
            << "a file drag near the notch did not open the shelf";
        ASSERT_TRUE(waitUntilExpanded());
        drag.moveTo(x, y);
        drag.hover(300ms);
        EXPECT_TRUE(panelShows(4)) << "no gap opened for the folders";
    }
    EXPECT_TRUE(waitUntil([&] {
        return pinnedFolders() == std::vector<std::string>{alpha, first, second, beta, gamma};
    })) << "the folders were not pinned before the hovered tile: "
        << ::testing::PrintToString(pinnedFolders());
    EXPECT_TRUE(panelShows(5));
    EXPECT_EQ(storedItems().size(), 5u) << "the file was pinned too";

    ASSERT_TRUE(openShelf());
    const PostedSignals signals(environment());
    const auto drag = [&](std::pair<int, int> from, std::pair<int, int> to) {
        PointerDrag hold(hand, from.first, from.second);
        hold.moveTo(to.first, to.second);
        hold.hover(300ms);
    };
    drag(tileCentre(0), tileCentre(1));
    ASSERT_TRUE(signals.waitFor("Tidewell.itemsChanged"));
    EXPECT_EQ(pinnedFolders(), (std::vector<std::string>{first, alpha, second, beta, gamma}));
    EXPECT_FALSE(signals.waitFor("Tidewell.itemsChanged", 2, 1s)) << "the order was saved twice";

    ASSERT_TRUE(openShelf());
    const auto [fromX, fromY] = tileCentre(0);
    drag({fromX, fromY}, {fromX, fromY + 400});
    EXPECT_TRUE(waitUntil([&] {
        return pinnedFolders() == std::vector<std::string>{alpha, second, beta, gamma};
    }));
    EXPECT_EQ(storedItems().size(), 5u) << "the project was removed, not unpinned";
}

} // namespace
} // namespace tidewell::testing
