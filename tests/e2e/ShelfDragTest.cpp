#include "e2e/PostedSignalListener.h"
#include "e2e/RunningApplicationTest.h"
#include "support/PointerDrag.h"

#include <thread>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

class ShelfDragTest : public RunningApplicationTest {
protected:
    // Another application's window at the point, offering the paths as a file drag.
    std::unique_ptr<ChildProcess> startDragSource(int x, int y,
                                                  const std::vector<std::string>& paths) {
        std::vector<std::string> arguments{"--at", std::to_string(x) + "," + std::to_string(y)};
        arguments.insert(arguments.end(), paths.begin(), paths.end());
        arguments.insert(arguments.begin(), buildFolder() + "/tests/tidewell_drag_source_probe");
        auto source = std::make_unique<ChildProcess>(
            ChildProcess::Launch{.arguments = arguments,
                                 .workingDirectory = home,
                                 .environment = applicationEnvironment()});
        EXPECT_TRUE(waitUntil([&] {
            return source->standardOutput().find("ready") != std::string::npos;
        })) << "the drag source did not show its window";
        return source;
    }

    bool panelShows(int tiles) {
        return waitUntil([&] { return inspector.rootGeometry(panel) == panelGeometry(tiles); });
    }

    void openWithThreeProjects() {
        startApplication();
        ASSERT_TRUE(openShelf());
        ASSERT_TRUE(waitUntilSettled());
    }
};

TEST_F(ShelfDragTest, FoldersDraggedTowardsTheNotchOpenAGapBeforeTheHoveredTileAndArePinnedThere) {
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
    PointerDrag drag(hand, 360, 540);
    drag.moveTo(x, 300);
    drag.moveTo(x, 140);
    ASSERT_TRUE(waitUntil([&] { return isShelfShown(); }))
        << "a file drag near the notch did not open the shelf";
    ASSERT_TRUE(waitUntilExpanded());
    drag.moveTo(x, y);
    drag.hover(300ms);
    EXPECT_TRUE(panelShows(4)) << "no gap opened for the folders";
    drag.release();

    EXPECT_TRUE(waitUntil([&] {
        return pinnedFolders() == std::vector<std::string>{alpha, first, second, beta, gamma};
    })) << "the folders were not pinned before the hovered tile: "
        << ::testing::PrintToString(pinnedFolders());
    EXPECT_TRUE(panelShows(5));
    EXPECT_EQ(storedItems().size(), 5u) << "the file was pinned too";
}

TEST_F(ShelfDragTest, ATileDraggedOntoItsNeighbourTakesItsPlaceAndTheOrderIsSavedOnce) {
    const std::string alpha = addProject("alpha");
    const std::string beta = addProject("beta");
    const std::string gamma = addProject("gamma");
    openWithThreeProjects();
    PostedSignalListener signals;

    const auto [fromX, fromY] = tileCentre(0);
    const auto [toX, toY] = tileCentre(1);
    PointerDrag drag(hand, fromX, fromY);
    drag.moveTo(toX, toY);
    drag.hover(300ms);
    drag.release();

    ASSERT_TRUE(signals.waitFor("Tidewell.itemsChanged"));
    EXPECT_EQ(pinnedFolders(), (std::vector<std::string>{beta, alpha, gamma}));
    EXPECT_FALSE(signals.waitFor("Tidewell.itemsChanged", 2, 1s)) << "the order was saved twice";
}

TEST_F(ShelfDragTest, ATileDraggedFarOutsideTheShelfIsUnpinned) {
    const std::string alpha = addProject("alpha");
    const std::string beta = addProject("beta");
    const std::string gamma = addProject("gamma");
    openWithThreeProjects();

    const auto [x, y] = tileCentre(0);
    PointerDrag drag(hand, x, y);
    drag.moveTo(x, y + 400);
    drag.hover(200ms);
    drag.release();

    EXPECT_TRUE(waitUntil([&] {
        return pinnedFolders() == std::vector<std::string>{beta, gamma};
    }));
    EXPECT_EQ(storedItems().size(), 3u) << "the project was removed, not unpinned";
}

} // namespace
} // namespace tidewell::testing
