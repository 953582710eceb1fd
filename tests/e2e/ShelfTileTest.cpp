#include "e2e/EndToEndTest.h"

#include <thread>

namespace tidewell::testing {
namespace {

constexpr unsigned long black = 0x000000;

bool isMarked(unsigned long pixel) {
    const unsigned long red = pixel >> 16 & 0xFF, green = pixel >> 8 & 0xFF, blue = pixel & 0xFF;
    return red > 0xE0 && green < 0x30 && blue > 0xE0;
}

class ShelfTileTest : public RunningApplicationTest {
protected:
    // Checks what the open shelf of that many tiles shows and where it takes the pointer; the
    // pointer away from it then closes it.
    void expectDrawnOutlineAndClickThrough(int tiles) {
        const WindowRect window = inspector.rootGeometry(panel);
        ASSERT_EQ(window, panelGeometry(tiles));
        const int frameLeft = window.x + shadowMargin;
        const int frameRight = frameLeft + window.width - 2 * shadowMargin; // one past the end
        const int bodyBottom = topInset + 88;                               // one past the end
        const std::tuple<int, int, unsigned long> points[] = {
            {frameLeft + 6, 6, desktopColour},                // under the left flare
            {frameRight - 7, 6, desktopColour},               // under the right flare
            {frameLeft + 8, bodyBottom - 1, desktopColour},   // the lower-left corner
            {frameRight - 9, bodyBottom - 1, desktopColour},  // the lower-right corner
            {window.x + 1, window.height - 2, desktopColour}, // the shadow margin
            {window.x + window.width / 2, window.height + 4, desktopColour}, // below
            {window.x + window.width / 2, 10, black},
            {frameLeft + 11, 60, black},
            {frameLeft + 6, 0, black},
            {frameRight - 7, 0, black}};
        // On a busy machine the window's shape can trail its drawing by a frame or two.
        for (const auto& [x, y, colour] : points)
            EXPECT_TRUE(waitUntil([&] { return inspector.screenPixel(x, y) == colour; }))
                << x << "," << y << " shows " << std::hex << inspector.screenPixel(x, y);

        // Beside the body, inside the window's rectangle: the click goes to what lies below.
        hand.movePointerTo(frameLeft + 2, 60);
        hand.click(1);
        EXPECT_TRUE(hand.waitForButtonPress(desktop, 3s)) << "the press did not reach the desktop";
        hand.movePointerTo(screenWidth / 2, 600);
        EXPECT_TRUE(waitUntil([&] { return !isShelfShown(); }));
    }

    // The centre of the marked icon in the settings window, found down a line through its
    // left part (the initials are drawn in the middle).
    std::optional<std::pair<int, int>> markedIconCentre() {
        const WindowRect window = inspector.rootGeometry(settings);
        const int x = window.x + 20 + 14 + 8;
        const std::vector<unsigned long> line =
            inspector.screenArea({x, window.y, 1, window.height});
        const auto first = std::ranges::find_if(line, isMarked);
        if (first == line.end())
            return std::nullopt;
        const auto last = std::find_if(line.rbegin(), line.rend(), isMarked);
        const int top = static_cast<int>(first - line.begin());
        const int bottom = static_cast<int>(line.rend() - last) - 1;
        return std::pair(x + 14, window.y + (top + bottom) / 2);
    }

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
    unsigned long settings = 0;
};

// A throw against the top edge or a hover opens the shelf, drawn in its outline with and without
// a compositor, clicks beside the body going through. The panel never takes the keyboard focus
// from the window that has it. The tile menus' entries run through the real terminal launcher
// into xterm. The items file's first project, which the settings window lists first, is marked
// with a tint no other pixel of the window has. Folders dragged towards the notch open a gap
// before the hovered tile and are pinned there; a tile dragged onto its neighbour takes its
// place, saved once. The open shelf grows with pins; many tiles stay inside the strip.
TEST_F(ShelfTileTest, TheDrawnShelfTakesClicksMenusDropsAndTheWheelWhileTheFocusStaysElsewhere) {
    const std::string alpha = addProject("alpha");
    const std::string beta = addProject("beta");
    const std::string marker = root.path() + "/marker";
    const std::string gamma = addProject(
        "gamma", {"--command", "echo first > '" + marker + "'\npwd >> '" + marker + "'"});
    std::vector<NotchItem> items = storedItems();
    items.front().tintHex = "#FF00FF";
    writeItemsFile(ItemsJson::encode(items));
    root.write("config/Tidewell/Tidewell.conf", "[General]\npreferredTerminalApp=xterm\n");
    // Terminals open low on the left, clear of the shelf and of the pixels the test reads.
    const std::string resources = root.write("xterm-resources", "XTerm*geometry: 40x5+0+800\n");
    startApplication({{"XENVIRONMENT", resources}});
    // A throw against the top edge at the trigger's last column: 180 points at the top centre.
    hand.movePointerTo(1049, 300);
    hand.movePointerBy(0, -400); // the top edge stops it
    EXPECT_TRUE(waitUntil([&] { return isShelfShown(); }));
    hand.movePointerTo(1049, 600);
    EXPECT_TRUE(waitUntil([&] { return !isShelfShown(); }));
    ASSERT_FALSE(inspector.hasCompositor());
    ASSERT_TRUE(openShelf());
    expectDrawnOutlineAndClickThrough(3);
    const unsigned long editor = inspector.createManagedWindow();
    ASSERT_TRUE(waitUntil([&] { return inspector.isViewable(editor); }));
    inspector.activate(editor);
    ASSERT_TRUE(waitUntil(
        [&] { return inspector.activeWindow() == editor && inspector.focusedWindow() == editor; }));

    ASSERT_TRUE(openShelf());
    const auto [tileX, tileY] = tileCentre(0);
    EXPECT_TRUE(isMarked(inspector.screenPixel(tileX, tileY - 24)))
        << "the first tile is not marked";
    clickTile(0, 1);
    expectFolderOpened(alpha);
    EXPECT_EQ(inspector.focusedWindow(), editor);
    EXPECT_EQ(inspector.activeWindow(), editor);

    // The second entry opens a terminal in the folder; the fifth, there with a start command,
    // runs the command of two lines from a script in the runtime folder.
    ASSERT_TRUE(openShelf());
    chooseMenuEntry(0, 2);
    EXPECT_TRUE(waitUntil([&] { return isWorkedIn(alpha); }, 15s)) << "no terminal in " << alpha;
    ASSERT_TRUE(openShelf());
    chooseMenuEntry(2, 5);
    const auto marked = [&] { return readFile(marker).value_or(""); };
    EXPECT_TRUE(waitUntil([&] { return marked() == "first\n" + gamma + "\n"; }, 15s)) << marked();
    const auto isScript = [](const std::string& name) {
        return name.starts_with("tidewell-cmd-") && name.ends_with(".sh");
    };
    EXPECT_EQ(std::ranges::count_if(entries(runtimeFolder), isScript), 1);

    // The gear tile, narrower than the others, after the three tiles.
    ASSERT_TRUE(openShelf());
    hand.movePointerTo(tileCentre(3).first - 13, tileCentre(3).second);
    hand.click(1);
    std::optional<unsigned long> found;
    ASSERT_TRUE(waitUntil([&] {
        found = inspector.findWindow("Tidewell Settings");
        return found && inspector.isViewable(*found);
    })) << "the settings window did not appear";
    settings = *found;
    ASSERT_TRUE(waitUntil([&] { return markedIconCentre().has_value(); }))
        << "the first project's row is not drawn";

    // Shown, the window takes the keyboard: keys typed before that would go astray.
    ASSERT_TRUE(waitUntil([&] { return inspector.focusedWindow() == settings; }))
        << "the settings window does not have the keyboard";
    // The name field is beside the icon, in the upper half of the row; its frame takes the
    // accent colour once it has the keyboard.
    const auto [iconX, iconY] = *markedIconCentre();
    const int fieldLeft = iconX + 22 + 12;
    const unsigned long unfocusedFrame = inspector.screenPixel(fieldLeft, iconY - 9);
    hand.movePointerTo(fieldLeft + 80, iconY - 9);
    hand.click(1);
    ASSERT_TRUE(waitUntil([&] {
        return inspector.screenPixel(fieldLeft, iconY - 9) != unfocusedFrame;
    })) << "the name field did not take the keyboard";
    hand.typeKey("ctrl+a");
    hand.typeText("site");
    // Saved by replacing the file: never read half-written.
    EXPECT_TRUE(waitUntil([&] { return storedItems().at(0).name == "site"; }))
        << "the name was not saved";

    // Folders dropped onto the projects are pinned in order after the others; files are not.
    const std::string first = project("first dropped");
    const std::string second = project("second dropped");
    auto source = startDragSource(100, 100, {first, root.write("notes.txt"), second});
    // The drop target's outline lies left of the row.
    const int outlineX = inspector.rootGeometry(settings).x + 14;
    const unsigned long unmarked = inspector.screenPixel(outlineX, iconY);
    hand.movePointerTo(160, 140);
    hand.setPrimaryButton(true);
    hand.dragTo(iconX, iconY);
    EXPECT_TRUE(waitUntil([&] { return inspector.screenPixel(outlineX, iconY) != unmarked; }))
        << "the projects were not outlined while the drag hovered";
    hand.setPrimaryButton(false);
    EXPECT_TRUE(waitUntil([&] { return storedItems().size() == 5; }))
        << storedItems().size() << " items: the file was added too, or a folder was not";
    EXPECT_EQ(pinnedFolders(), (std::vector{alpha, beta, gamma, first, second}));
    EXPECT_TRUE(waitUntil([&] { return inspector.screenPixel(outlineX, iconY) == unmarked; }))
        << "the outline stayed after the drop";
    hand.typeKey("Escape");
    ASSERT_TRUE(waitUntil([&] { return !inspector.isViewable(settings); }))
        << "Escape did not close the settings window";

    // Straight up towards the second tile, below the notch: the widened trigger opens the shelf
    // before the pointer reaches the tiles.
    const std::string third = project("third dropped");
    const std::string fourth = project("fourth dropped");
    source = startDragSource(300, 500, {third, root.write("more-notes.txt"), fourth});
    hand.movePointerTo(screenWidth / 2, 700);
    ASSERT_TRUE(waitUntil([&] { return !isShelfShown(); }));
    const int secondX = panelGeometry(5).x + shadowMargin + 14 + 66 + 30;
    hand.movePointerTo(360, 540);
    hand.setPrimaryButton(true);
    hand.dragTo(secondX, 300);
    hand.dragTo(secondX, 140);
    ASSERT_TRUE(waitUntil([&] { return isShelfShown(); }))
        << "a file drag near the notch did not open the shelf";
    ASSERT_TRUE(waitUntilOpen());
    hand.dragTo(secondX, topInset + 8 + 31);
    EXPECT_TRUE(panelShows(6)) << "no gap opened for the folders";
    hand.setPrimaryButton(false);
    EXPECT_TRUE(waitUntil([&] {
        return pinnedFolders() ==
               std::vector<std::string>{alpha, third, fourth, beta, gamma, first, second};
    })) << "the folders were not pinned before the hovered tile: "
        << ::testing::PrintToString(pinnedFolders());
    EXPECT_TRUE(panelShows(7));

    ASSERT_TRUE(openShelf());
    const PostedSignals signals(environment());
    hand.movePointerTo(tileCentre(0).first, tileCentre(0).second);
    hand.setPrimaryButton(true);
    hand.dragTo(tileCentre(1).first, tileCentre(1).second);
    // The hand rests on the neighbour before it lets go, as users do.
    std::this_thread::sleep_for(300ms);
    hand.setPrimaryButton(false);
    ASSERT_TRUE(signals.waitFor("Tidewell.itemsChanged"));
    EXPECT_EQ(pinnedFolders(),
              (std::vector<std::string>{third, alpha, fourth, beta, gamma, first, second}));
    EXPECT_FALSE(signals.waitFor("Tidewell.itemsChanged", 2, 1s)) << "the order was saved twice";

    ChildProcess compositor({.arguments = {"xcompmgr"},
                             .workingDirectory = "/",
                             .environment = {{"DISPLAY", display.name()}}});
    ASSERT_TRUE(waitUntil([&] { return inspector.hasCompositor(); }));
    ASSERT_TRUE(openShelf());
    expectDrawnOutlineAndClickThrough(7);

    // Many tiles stay inside the strip, and the wheel reaches the last.
    ASSERT_TRUE(openShelf());
    const auto withSevenTiles = besideTheStrip();
    for (int index = 7; index < 40; ++index)
        addProject("project-" + std::to_string(index));
    ASSERT_TRUE(waitUntil([&] { return inspector.rootGeometry(panel).width == 1856 + 32; }));
    EXPECT_TRUE(isShelfShown());
    EXPECT_EQ(inspector.findWindow("Tidewell Shelf"), panel) << "the panel was made anew";
    EXPECT_TRUE(waitUntil([&] { return besideTheStrip() == withSevenTiles; }))
        << "tiles are drawn beside the strip";
    const auto [sixthX, sixthY] = tileCentre(5);
    hand.movePointerTo(sixthX, sixthY);
    for (int notch = 0; notch < 15; ++notch)
        hand.click(5);
    EXPECT_TRUE(waitUntil([&] { return besideTheStrip() == withSevenTiles; }))
        << "tiles scrolled over the left padding";
    // The strip ends 51 points before the frame's right edge.
    const WindowRect window = inspector.rootGeometry(panel);
    hand.movePointerTo(window.x + window.width - shadowMargin - 51 - 30, sixthY);
    hand.click(1);
    expectFolderOpened(pinnedFolders().back());
    // Drawn by the processor: an OpenGL driver would be most of the process's memory.
    EXPECT_EQ(readFile("/proc/" + std::to_string(application->pid()) + "/maps")->find("/dri/"),
              std::string::npos)
        << "an OpenGL driver is loaded";
}

} // namespace
} // namespace tidewell::testing
