#include "wayland/WaylandApplicationTest.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

namespace tidewell::testing {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// A row of the screen between two columns.
struct RowSpan {
    int y;
    int fromX;
    int toX; // one past the end
};

// The rows of the span's height whose pixels differ between the two screenshots.
std::set<int> changedRows(const Screenshot& before, const Screenshot& after, const RowSpan& top,
                          int height) {
    std::set<int> rows;
    for (int y = top.y; y < top.y + height; ++y)
        for (int x = top.fromX; x < top.toX; ++x)
            if (before.pixel(x, y) != after.pixel(x, y))
                rows.insert(y);
    return rows;
}

// Whether a terminal runs a shell in the folder: a process working there, started by foot.
bool terminalRunsIn(const std::string& folder) {
    for (const auto& process : fs::directory_iterator("/proc")) {
        std::error_code unreadable;
        if (fs::read_symlink(process.path() / "cwd", unreadable) != folder)
            continue;
        std::ifstream stat(process.path() / "stat");
        std::string pid, name, state;
        int parent = 0;
        stat >> pid >> name >> state >> parent;
        std::string parentName;
        std::ifstream("/proc/" + std::to_string(parent) + "/comm") >> parentName;
        if (parentName == "foot")
            return true;
    }
    return false;
}

class WaylandShelfTest : public WaylandApplicationTest {
protected:
    // Right-clicks the tile, waits for its menu and clicks its second entry. The menu opens
    // right of and below the pointer; hovering an entry highlights it, so the second entry is
    // the highlighted band that follows the first.
    void chooseSecondMenuEntry(int x, int y) {
        hand.moveTo(x, y);
        hand.click(VirtualPointer::Button::right);
        // Clear of the pointer, both before and while it hovers the menu.
        const RowSpan menuTop{y, x + 30, x + 130};
        ASSERT_TRUE(waitUntil([&] {
            const Screenshot shot = desktop.screenshot();
            return shot.pixel(x + 100, topInset + 100) != backgroundColour &&
                   shot.pixel(x + 100, topInset + 120) != backgroundColour;
        })) << "no menu appeared";
        const Screenshot menu = desktop.screenshot();
        std::set<int> first;
        // As a hand moves: the menu follows the pointer once it has moved over it.
        hand.moveTo(x + 149, y + 9);
        hand.moveTo(x + 150, y + 10);
        ASSERT_TRUE(waitUntil([&] {
            return !(first = changedRows(menu, desktop.screenshot(), menuTop, 60)).empty();
        })) << "hovering the menu highlighted nothing";
        std::set<int> second;
        hand.moveTo(x + 150, *first.rbegin() + 6);
        ASSERT_TRUE(waitUntil([&] {
            second = changedRows(menu, desktop.screenshot(), menuTop, 120);
            return !second.empty() && *second.begin() > *first.begin() + 4;
        })) << "no second entry below the first";
        hand.moveTo(x + 150, (*second.begin() + *second.rbegin()) / 2);
        hand.click();
    }
};

TEST_F(WaylandShelfTest, WithoutAnXServerTheTopCentreOpensTheShelfAndClicksBesideItPassThrough) {
    for (const char* name : {"alpha", "beta", "gamma"})
        addProject(name);
    const auto below = startWindow(0, 0, SwayDesktop::outputWidth, SwayDesktop::outputHeight);
    startApplication();
    ASSERT_TRUE(openOnceStarted(centreX(0), 3, 3)) << application->standardError();

    // Leaving closes it; at rest nothing is drawn over the window below.
    hand.moveTo(centreX(0), 600);
    EXPECT_TRUE(waitUntilClosed(0, windowColour));
    // The top pixel row opens it too.
    hand.moveTo(centreX(0), 0);
    EXPECT_TRUE(waitUntilOpen(0, 3));
    hand.moveTo(centreX(0), 600);
    EXPECT_TRUE(waitUntilClosed(0, windowColour));

    // A click on the top edge beside the trigger reaches the window below, and opens nothing.
    hand.moveTo(400, 0);
    hand.click();
    EXPECT_TRUE(waitForLine(*below, "pressed 400,0")) << below->standardOutput();
    EXPECT_EQ(drawnBodyWidth(desktop.screenshot(), 0), 0);

    // A project pinned while the shelf is open widens it by one tile.
    hand.moveTo(centreX(0), 3);
    ASSERT_TRUE(waitUntilSettled(0, 3));
    addProject("delta");
    EXPECT_TRUE(waitUntilOpen(0, 4)) << drawnBodyWidth(desktop.screenshot(), 0);
}

TEST_F(WaylandShelfTest, FoldersDroppedFromAnotherClientArePinnedAndATileDraggedOutIsUnpinned) {
    const std::string alpha = addProject("alpha");
    const std::string beta = addProject("beta");
    const std::string gamma = addProject("gamma");
    const std::string dropped = project("dropped");
    const auto source = startWindow(200, 400, 120, 80, {dropped});
    startApplication();
    ASSERT_TRUE(openOnceStarted(centreX(0), 3, 3)) << application->standardError();
    hand.moveTo(centreX(0), 600);
    ASSERT_TRUE(waitUntilClosed(0));

    // From the other client up into the trigger: the shelf opens (the dragged icon covers the
    // pointer's place), perhaps with a gap already; over the second tile a gap opens for the
    // folder, which is pinned there.
    hand.moveTo(260, 440);
    hand.press();
    hand.dragTo(centreX(0), 300);
    hand.dragTo(centreX(0), 2);
    const auto showsTiles = [&](std::initializer_list<int> counts) {
        const int width = drawnBodyWidth(desktop.screenshot(), 0, -60);
        return std::ranges::any_of(
            counts, [&](int tiles) { return std::abs(width - bodyWidth(tiles)) <= 2; });
    };
    ASSERT_TRUE(waitUntil([&] {
        return showsTiles({3, 4});
    })) << "a file drag into the trigger did not open the shelf";
    const auto [x, y] = tileCentre(0, 3, 1);
    hand.dragTo(x, y);
    EXPECT_TRUE(waitUntil([&] { return showsTiles({4}); })) << "no gap opened for the folder";
    hand.release();
    EXPECT_TRUE(waitUntil([&] {
        return pinnedFolders() == std::vector<std::string>{alpha, dropped, beta, gamma};
    })) << ::testing::PrintToString(pinnedFolders());
    EXPECT_TRUE(waitForLine(*source, "finished copy")) << source->standardOutput();

    // The first tile dragged far below the shelf is unpinned.
    ASSERT_TRUE(waitUntilSettled(0, 4));
    const auto [fromX, fromY] = tileCentre(0, 4, 0);
    hand.moveTo(fromX, fromY);
    hand.press();
    hand.dragTo(fromX, fromY + 400);
    hand.release();
    EXPECT_TRUE(waitUntil([&] {
        return pinnedFolders() == std::vector<std::string>{dropped, beta, gamma};
    })) << ::testing::PrintToString(pinnedFolders());
}

TEST_F(WaylandShelfTest, ATilesMenuOpensAndItsOpenInTerminalStartsATerminalInTheFolder) {
    root.write("config/Tidewell/Tidewell.conf", "[General]\npreferredTerminalApp=foot\n");
    const std::string alpha = addProject("alpha");
    addProject("beta");
    addProject("gamma");
    startApplication();
    ASSERT_TRUE(openOnceStarted(centreX(0), 3, 3)) << application->standardError();
    ASSERT_TRUE(waitUntilSettled(0, 3));

    const auto [x, y] = tileCentre(0, 3, 0);
    chooseSecondMenuEntry(x, y);
    EXPECT_TRUE(waitUntil([&] { return terminalRunsIn(alpha); }, 15s))
        << "no terminal runs a shell in " << alpha;
}

class WaylandTwoOutputsTest : public WaylandApplicationTest {
protected:
    WaylandTwoOutputsTest() : WaylandApplicationTest(2) {}
};

TEST_F(WaylandTwoOutputsTest, TheShelfOpensAtTheTopCentreOfTheOutputUnderThePointer) {
    addProject("alpha");
    startApplication();
    ASSERT_TRUE(openOnceStarted(centreX(1), 0, 1)) << application->standardError();
    EXPECT_EQ(drawnBodyWidth(desktop.screenshot(), 0), 0) << "drawn on the other output too";
    hand.moveTo(centreX(1), 600);
    EXPECT_TRUE(waitUntilClosed(1));

    hand.moveTo(centreX(0), 0);
    EXPECT_TRUE(waitUntilOpen(0, 1));
    EXPECT_EQ(drawnBodyWidth(desktop.screenshot(), 1), 0) << "drawn on the other output too";
    hand.moveTo(centreX(0), 600);
    EXPECT_TRUE(waitUntilClosed(0));
}

} // namespace
} // namespace tidewell::testing
