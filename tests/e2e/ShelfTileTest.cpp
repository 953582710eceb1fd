#include "core/items/ItemsJson.h"
#include "e2e/RunningApplicationTest.h"

#include <algorithm>

namespace tidewell::testing {
namespace {

class ShelfTileTest : public RunningApplicationTest {
protected:
    // Right-clicks the tile and waits for its menu, a new override-redirect window; the
    // menu's height, or none.
    std::optional<int> openTileMenu(int index) {
        const auto before = inspector.viewableOverrideRedirectWindows();
        clickTile(index, 3);
        std::optional<unsigned long> menu;
        waitUntil([&] {
            for (const unsigned long window : inspector.viewableOverrideRedirectWindows())
                if (!std::ranges::count(before, window))
                    menu = window;
            return menu.has_value();
        });
        return menu ? std::optional(inspector.rootGeometry(*menu).height) : std::nullopt;
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

// The panel never takes the keyboard focus from the window that has it.
TEST_F(ShelfTileTest, ClicksMenusAndTheWheelReachTheTilesWhileTheFocusStaysElsewhere) {
    const std::string alpha = addProject("alpha");
    addProject("beta");
    const std::string server = addProject("server", {"--command", "npm run dev"});
    // Dates are stored to the second: an opening long ago shows the new one for sure.
    std::vector<NotchItem> items = storedItems();
    for (NotchItem& item : items)
        item.lastOpenedAt = item.createdAt - std::chrono::hours(1);
    writeItemsFile(ItemsJson::encode(items));
    startApplication();
    const unsigned long editor = inspector.createManagedWindow();
    ASSERT_TRUE(waitUntil([&] { return inspector.isViewable(editor); }));
    inspector.activate(editor);
    ASSERT_TRUE(waitUntil(
        [&] { return inspector.activeWindow() == editor && inspector.focusedWindow() == editor; }));

    ASSERT_TRUE(openShelf());
    EXPECT_EQ(inspector.focusedWindow(), editor);
    clickTile(0, 1);
    expectFolderOpened(alpha);
    EXPECT_TRUE(waitUntil([&] {
        const std::vector<NotchItem> now = storedItems();
        return now.size() == 3 && now[0].path == alpha &&
               now[0].lastOpenedAt > items[0].lastOpenedAt;
    })) << "lastOpenedAt was not recorded";
    EXPECT_EQ(inspector.focusedWindow(), editor);
    EXPECT_EQ(inspector.activeWindow(), editor);

    // Six entries and two dividers, against seven entries and two dividers with a start command.
    ASSERT_TRUE(openShelf());
    const std::size_t before = inspector.viewableOverrideRedirectWindows().size();
    const auto plainMenu = openTileMenu(0);
    ASSERT_TRUE(plainMenu) << "no menu appeared";
    hand.typeKey("Escape");
    ASSERT_TRUE(
        waitUntil([&] { return inspector.viewableOverrideRedirectWindows().size() == before; }));
    const auto serverMenu = openTileMenu(2);
    ASSERT_TRUE(serverMenu) << "no menu appeared";
    const int entry = *serverMenu - *plainMenu;
    EXPECT_GT(entry, 0);
    EXPECT_LT(6 * entry, *plainMenu);
    EXPECT_GT(8 * entry, *plainMenu);
    hand.typeKey("Down");
    hand.typeKey("Return");
    expectFolderOpened(server);

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
}

} // namespace
} // namespace tidewell::testing
