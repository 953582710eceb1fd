#include "wayland/WaylandTest.h"

#include <filesystem>
#include <fstream>
#include <set>

namespace tidewell::testing {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// Whether a terminal runs a shell in the folder: a process working there, started by foot.
bool terminalRunsIn(const std::string& folder) {
    for (const auto& process : fs::directory_iterator("/proc")) {
        std::error_code unreadable;
        if (fs::read_symlink(process.path() / "cwd", unreadable) != folder)
            continue;
        std::string pid, name, state, parentName;
        int parent = 0;
        std::ifstream(process.path() / "stat") >> pid >> name >> state >> parent;
        std::ifstream("/proc/" + std::to_string(parent) + "/comm") >> parentName;
        if (parentName == "foot")
            return true;
    }
    return false;
}

class WaylandShelfTest : public WaylandTest {
protected:
    // The rows from y down that many, between x + 30 and x + 130 (clear of the pointer at x and
    // at x + 150), whose pixels differ from those of the screenshot.
    std::set<int> changedRows(const SwayDesktop::Screenshot& before, int x, int y, int rows) {
        const SwayDesktop::Screenshot after = desktop.screenshot();
        std::set<int> changed;
        for (int row = y; row < y + rows; ++row)
            for (int column = x + 30; column < x + 130; ++column)
                if (before.pixel(column, row) != after.pixel(column, row))
                    changed.insert(row);
        return changed;
    }

    // Right-clicks the tile, waits for its menu and clicks its second entry. The menu opens
    // right of and below the pointer; hovering an entry highlights it, so the second entry is
    // the highlighted band that follows the first.
    void chooseSecondMenuEntry(int x, int y) {
        const SwayDesktop::Screenshot shelf = desktop.screenshot();
        desktop.moveTo(x, y);
        desktop.click("right");
        ASSERT_TRUE(waitUntil([&] { return changedRows(shelf, x, y + 30, 30).size() == 30; }))
            << "no menu appeared";
        const SwayDesktop::Screenshot menu = desktop.screenshot();
        std::set<int> first;
        std::set<int> second;
        // As a hand moves: the menu follows the pointer once it has moved over it.
        desktop.moveTo(x + 149, y + 9);
        desktop.moveTo(x + 150, y + 10);
        ASSERT_TRUE(waitUntil([&] { return !(first = changedRows(menu, x, y, 60)).empty(); }))
            << "hovering the menu highlighted nothing";
        desktop.moveTo(x + 150, *first.rbegin() + 6);
        ASSERT_TRUE(waitUntil([&] {
            second = changedRows(menu, x, y, 120);
            return !second.empty() && *second.begin() > *first.begin() + 4;
        })) << "no second entry below the first";
        desktop.moveTo(x + 150, (*second.begin() + *second.rbegin()) / 2);
        desktop.click();
    }
};

// The top pixel row of an output and the rows just below it open the shelf there, over other
// windows, and on that output only.
TEST_F(WaylandShelfTest, TheTopCentreOfEachOutputOpensTheShelfWhereATilesMenuOpensATerminal) {
    root.write("config/Tidewell/Tidewell.conf", "[General]\npreferredTerminalApp=foot\n");
    const std::string alpha = addProject("alpha");
    addProject("beta");
    addProject("gamma");
    const auto below = startWindow(0, 0, SwayDesktop::outputWidth, SwayDesktop::outputHeight);
    startApplication();
    ASSERT_TRUE(openOnceStarted(centreX(1), 0, 3)) << application->standardError();
    EXPECT_EQ(drawnBodyWidth(0), 0) << "drawn on the other output too";
    desktop.moveTo(centreX(1), 600);
    EXPECT_TRUE(waitUntilClosed(1));
    desktop.moveTo(centreX(0), 3);
    EXPECT_TRUE(waitUntilOpen(0, 3));
    EXPECT_EQ(drawnBodyWidth(1), 0) << "drawn on the other output too";
    // Leaving closes it; at rest nothing is drawn over the window below.
    desktop.moveTo(centreX(0), 600);
    EXPECT_TRUE(waitUntilClosed(0, windowColour));

    // A click on the top edge beside the trigger reaches the window below, and opens nothing.
    desktop.moveTo(400, 0);
    desktop.click();
    EXPECT_TRUE(waitForLine(*below, "pressed 400,0")) << below->standardOutput();
    EXPECT_EQ(drawnBodyWidth(0), 0);

    // A project pinned while the shelf is open widens it by one tile.
    desktop.moveTo(centreX(0), 3);
    ASSERT_TRUE(waitUntilSettled(0, 3));
    addProject("delta");
    ASSERT_TRUE(waitUntilSettled(0, 4)) << drawnBodyWidth(0);

    // The first tile's menu: its second entry opens a terminal in the folder.
    const auto [x, y] = tileCentre(0, 4, 0);
    chooseSecondMenuEntry(x, y);
    EXPECT_TRUE(waitUntil([&] { return terminalRunsIn(alpha); }, 15s))
        << "no terminal runs a shell in " << alpha;
}

TEST_F(WaylandShelfTest, FoldersDroppedFromAnotherClientArePinnedAndATileDraggedOutIsUnpinned) {
    const std::string alpha = addProject("alpha");
    const std::string beta = addProject("beta");
    const std::string gamma = addProject("gamma");
    const std::string dropped = project("dropped");
    const auto source = startWindow(200, 400, 120, 80, {dropped});
    startApplication();
    ASSERT_TRUE(openOnceStarted(centreX(0), 3, 3)) << application->standardError();
    desktop.moveTo(centreX(0), 600);
    ASSERT_TRUE(waitUntilClosed(0));

    // From the other client up into the trigger: the shelf opens (the dragged icon covers the
    // pointer's place), perhaps with a gap already; over the second tile a gap opens for the
    // folder, which is pinned there.
    desktop.moveTo(260, 440);
    desktop.press();
    desktop.dragTo(centreX(0), 300);
    desktop.dragTo(centreX(0), 2);
    ASSERT_TRUE(waitUntil([&] { return showsTiles(0, 3, -60) || showsTiles(0, 4, -60); }))
        << "a file drag into the trigger did not open the shelf";
    const auto [x, y] = tileCentre(0, 3, 1);
    desktop.dragTo(x, y);
    EXPECT_TRUE(waitUntil([&] { return showsTiles(0, 4, -60); })) << "no gap opened for it";
    desktop.release();
    EXPECT_TRUE(waitUntil([&] {
        return pinnedFolders() == std::vector<std::string>{alpha, dropped, beta, gamma};
    })) << ::testing::PrintToString(pinnedFolders());
    EXPECT_TRUE(waitForLine(*source, "finished copy")) << source->standardOutput();

    // The first tile dragged far below the shelf is unpinned.
    ASSERT_TRUE(waitUntilSettled(0, 4));
    const auto [fromX, fromY] = tileCentre(0, 4, 0);
    desktop.moveTo(fromX, fromY);
    desktop.press();
    desktop.dragTo(fromX, fromY + 400);
    desktop.release();
    EXPECT_TRUE(waitUntil([&] {
        return pinnedFolders() == std::vector<std::string>{dropped, beta, gamma};
    })) << ::testing::PrintToString(pinnedFolders());
}

} // namespace
} // namespace tidewell::testing
