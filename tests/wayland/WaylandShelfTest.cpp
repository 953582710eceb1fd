#include "e2e/EndToEndTest.h"
#include "support/SwayDesktop.h"

#include <ranges>
#include <set>

namespace tidewell::testing {
namespace {

using Screenshot = SwayDesktop::Screenshot;

constexpr unsigned long windowColour = 0xFF8800;

int centreX(int output) {
    return output * SwayDesktop::outputWidth + SwayDesktop::outputWidth / 2;
}

// Where the tile's centre lies while the shelf shows that many tiles (three or more).
std::pair<int, int> tileCentre(int output, int tiles, int index) {
    const auto [x, y] = tileOffset(index);
    return {output * SwayDesktop::outputWidth + shelfLeft(tiles) + x, y};
}

// The application in a Wayland session without any X server, seen in screenshots: a black body
// with one tile per pinned project under the top centre of an output.
class WaylandShelfTest : public EndToEndTest {
protected:
    ChildProcess::Launch session(const std::string& program,
                                 const std::vector<std::string>& arguments = {}) const {
        auto session = launch(program, arguments, home);
        session.environment.merge(desktop.environment());
        session.environment["XDG_SESSION_TYPE"] = "wayland";
        return session;
    }

    // The width of the black run above the tiles, through the point dx from the output's centre.
    int drawnBodyWidth(int output, int dx = 0) const {
        return desktop.screenshot().runThrough(centreX(output) + dx, topInset + 4, 0x000000);
    }

    // The body lies 8 points inside the frame's sides; its sides may be drawn a pixel in or out.
    bool showsTiles(int output, int tiles, int dx = 0) const {
        return std::abs(drawnBodyWidth(output, dx) - (shelfWidth(tiles) - 16)) <= 2;
    }

    bool waitUntilOpen(int output, int tiles) {
        return waitUntil([&] { return showsTiles(output, tiles); });
    }

    // Waits until nothing is drawn at the top of the first output but the window covering it.
    bool waitUntilClosed() {
        return waitUntil([&] {
            const Screenshot shot = desktop.screenshot();
            return std::ranges::all_of(std::views::iota(0, topInset + 100), [&](int y) {
                return shot.runThrough(0, y, windowColour) == SwayDesktop::outputWidth;
            });
        });
    }

    // Only once the first tile's icon has faded in does the open shelf take clicks.
    bool waitUntilSettled(int output, int tiles) {
        const auto [x, y] = tileCentre(output, tiles, 0);
        return waitUntilOpen(output, tiles) &&
               waitUntilSteady([&] { return desktop.screenshot().pixel(x, y); });
    }

    // The rows from y down that differ from the screenshot's, clear of the pointer at x, x + 150.
    std::set<int> changedRows(const Screenshot& before, int x, int y, int rows) const {
        const Screenshot after = desktop.screenshot();
        std::set<int> changed;
        for (int row = y; row < y + rows; ++row)
            for (int column = x + 30; column < x + 130; ++column)
                if (before.pixel(column, row) != after.pixel(column, row))
                    changed.insert(row);
        return changed;
    }

    // The menu opens right of and below the pointer; the entry hovered is highlighted, and the
    // second lies one entry's height below the first.
    void chooseSecondMenuEntry(int x, int y) {
        const Screenshot shelf = desktop.screenshot();
        desktop.moveTo(x, y);
        desktop.click("right");
        // The menu is made on first use, which a busy machine takes its time over.
        ASSERT_TRUE(waitUntil([&] { return changedRows(shelf, x, y + 30, 30).size() == 30; }, 15s))
            << "no menu appeared";
        const Screenshot menu = desktop.screenshot();
        std::set<int> first;
        // As a hand moves: the menu follows the pointer once it has moved over it.
        desktop.moveTo(x + 149, y + 9);
        desktop.moveTo(x + 150, y + 10);
        ASSERT_TRUE(waitUntil([&] { return !(first = changedRows(menu, x, y, 60)).empty(); }))
            << "hovering the menu highlighted nothing";
        desktop.moveTo(x + 150, y + 11 + *first.rbegin() - *first.begin());
        desktop.click();
    }

    SwayDesktop desktop{runtimeFolder, buildFolder() + "/tests/tidewell_virtual_pointer_probe"};
};

// The top rows of an output open the shelf there only, over another client's window that
// offers a folder as a file drag and reports presses and drops.
TEST_F(WaylandShelfTest, TheShelfOpensAtTheTopOfEachOutputTakesDropsAndItsTilesOpenTerminals) {
    root.write("config/Tidewell/Tidewell.conf", "[General]\npreferredTerminalApp=foot\n");
    const std::string alpha = addProject("alpha");
    const std::string beta = addProject("beta");
    const std::string gamma = addProject("gamma");
    const std::string dropped = project("dropped");
    auto window =
        session(buildFolder() + "/tests/tidewell_drag_source_probe", {"--at", "0,0", dropped});
    window.environment["QT_QPA_PLATFORM"] = "wayland";
    ChildProcess below(window);
    ASSERT_TRUE(below.waitForOutput("ready\n")) << below.standardError();
    auto launch = session(tidewellPath());
    launch.environment["XDG_DATA_DIRS"] = root.makeFolder("desktop-data");
    launch.environment["XDG_CONFIG_DIRS"] = root.makeFolder("desktop-config");
    ChildProcess application(launch);
    // Until its surfaces appear the pointer at the top does nothing.
    ASSERT_TRUE(waitUntil(
        [&] {
            desktop.moveTo(centreX(1), 600);
            desktop.moveTo(centreX(1), 0);
            return waitUntil([&] { return drawnBodyWidth(1) > 0; }, 1s) && waitUntilOpen(1, 3);
        },
        20s))
        << application.standardError();
    EXPECT_EQ(drawnBodyWidth(0), 0) << "drawn on the other output too";
    desktop.moveTo(centreX(0), 3);
    EXPECT_TRUE(waitUntilOpen(0, 3));
    // Leaving closes it; at rest nothing is drawn over the window below.
    desktop.moveTo(centreX(0), 600);
    EXPECT_TRUE(waitUntilClosed());

    // A click on the top edge beside the trigger reaches the window below.
    desktop.moveTo(400, 0);
    desktop.click();
    EXPECT_TRUE(below.waitForOutput("pressed 400,0\n")) << below.standardOutput();

    // A file drag up into the trigger opens the shelf (the dragged icon covers the pointer's
    // place, so perhaps with a gap); the folder is pinned where a gap opens for it.
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
    EXPECT_TRUE(below.waitForOutput("finished copy\n")) << below.standardOutput();

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

    // The first tile's menu: its second entry opens a terminal in the folder.
    desktop.moveTo(centreX(0), 3);
    ASSERT_TRUE(waitUntilSettled(0, 3));
    const auto [menuX, menuY] = tileCentre(0, 3, 0);
    chooseSecondMenuEntry(menuX, menuY);
    EXPECT_TRUE(waitUntil([&] { return isWorkedIn(dropped); }, 15s))
        << "no terminal runs a shell in " << dropped;
}

} // namespace
} // namespace tidewell::testing
