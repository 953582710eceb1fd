#include "e2e/RunningApplicationTest.h"

#include <algorithm>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

class ShelfTileTest : public RunningApplicationTest {
protected:
    // Right-clicks the tile, waits for its menu (a new override-redirect window) and chooses
    // the entry by the keyboard, counting from 1.
    void chooseMenuEntry(int tile, int entry) {
        const auto before = inspector.viewableOverrideRedirectWindows();
        clickTile(tile, 3);
        ASSERT_TRUE(waitUntil([&] {
            return std::ranges::any_of(
                inspector.viewableOverrideRedirectWindows(),
                [&](unsigned long window) { return !std::ranges::count(before, window); });
        })) << "no menu appeared";
        for (int step = 0; step < entry; ++step)
            hand.typeKey("Down");
        hand.typeKey("Return");
    }

    // The body beside the strip, from its sides: the left padding, and the right one with the
    // gear and the space before it.
    std::pair<std::vector<unsigned long>, std::vector<unsigned long>> besideTheStrip() {
        const WindowRect window = inspector.rootGeometry(panel);
        const int left = window.x + shadowMargin + 8;
        const int right = window.x + window.width - shadowMargin - 8;
        return {inspector.screenArea({left, topInset, 6, 88}),
                inspector.screenArea({right - 43, topInset, 43, 88})};
    }
};

// The panel never takes the keyboard focus from the window that has it. The tile menus' entries
// run through the real terminal launcher into xterm.
TEST_F(ShelfTileTest, ClicksMenusAndTheWheelReachTheTilesWhileTheFocusStaysElsewhere) {
    const std::string alpha = addProject("alpha");
    addProject("beta");
    const std::string marker = root.path() + "/marker";
    const std::string server = addProject(
        "server", {"--command", "echo first > '" + marker + "'\npwd >> '" + marker + "'"});
    root.write("config/Tidewell/Tidewell.conf", "[General]\npreferredTerminalApp=xterm\n");
    // Terminals open low on the left, clear of the shelf and of the pixels the test reads.
    const std::string resources = root.write("xterm-resources", "XTerm*geometry: 40x5+0+800\n");
    startApplication({{"XENVIRONMENT", resources}});
    const unsigned long editor = inspector.createManagedWindow();
    ASSERT_TRUE(waitUntil([&] { return inspector.isViewable(editor); }));
    inspector.activate(editor);
    ASSERT_TRUE(waitUntil(
        [&] { return inspector.activeWindow() == editor && inspector.focusedWindow() == editor; }));

    ASSERT_TRUE(openShelf());
    EXPECT_EQ(inspector.focusedWindow(), editor);
    clickTile(0, 1);
    expectFolderOpened(alpha);
    EXPECT_EQ(inspector.focusedWindow(), editor);
    EXPECT_EQ(inspector.activeWindow(), editor);

    // The second entry opens a terminal in the folder; the fifth, there with a start command,
    // runs the command of two lines from a script that is removed ten seconds later.
    ASSERT_TRUE(openShelf());
    chooseMenuEntry(0, 2);
    EXPECT_TRUE(waitUntil([&] { return isWorkedIn(alpha); }, 15s)) << "no terminal in " << alpha;
    ASSERT_TRUE(openShelf());
    chooseMenuEntry(2, 5);
    const auto marked = [&] { return readFile(marker).value_or(""); };
    EXPECT_TRUE(waitUntil([&] { return marked() == "first\n" + server + "\n"; }, 15s)) << marked();
    const auto scripts = [&] {
        return std::ranges::count_if(entries(runtimeFolder), [](const std::string& name) {
            return name.starts_with("tidewell-cmd-") && name.ends_with(".sh");
        });
    };
    EXPECT_EQ(scripts(), 1);

    // Many tiles stay inside the strip, and the wheel reaches the last.
    ASSERT_TRUE(openShelf());
    const auto withThreeTiles = besideTheStrip();
    for (int index = 3; index < 40; ++index)
        addProject("project-" + std::to_string(index));
    ASSERT_TRUE(waitUntil([&] { return inspector.rootGeometry(panel).width == 1856 + 32; }));
    EXPECT_TRUE(waitUntil([&] { return besideTheStrip() == withThreeTiles; }))
        << "tiles are drawn beside the strip";
    const auto [x, y] = tileCentre(5);
    hand.movePointerTo(x, y);
    for (int notch = 0; notch < 15; ++notch)
        hand.click(5);
    EXPECT_TRUE(waitUntil([&] { return besideTheStrip() == withThreeTiles; }))
        << "tiles scrolled over the left padding";
    // The strip ends 51 points before the frame's right edge.
    const WindowRect window = inspector.rootGeometry(panel);
    hand.movePointerTo(window.x + window.width - shadowMargin - 51 - 30, y);
    hand.click(1);
    expectFolderOpened(pinnedFolders().back());
    EXPECT_TRUE(waitUntil([&] { return scripts() == 0; }, 15s)) << "the script was kept";
}

} // namespace
} // namespace tidewell::testing
