#include "core/items/ItemsJson.h"
#include "e2e/RunningApplicationTest.h"

#include <algorithm>
#include <string>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

class ShelfTileTest : public RunningApplicationTest {
protected:
    // The folder handler was started for the folder, given as a path or a file URI.
    void expectFolderOpened(const std::string& folder) {
        const auto launch = handlers.waitForLaunch(TestHandlers::folderHandlerId);
        ASSERT_TRUE(launch) << "the folder handler was not started";
        EXPECT_TRUE(launch->arguments == std::vector<std::string>{folder} ||
                    launch->arguments == std::vector<std::string>{"file://" + folder})
            << (launch->arguments.empty() ? "no arguments" : launch->arguments.front());
    }

    std::optional<NotchItem> storedItem(const std::string& folder) const {
        for (const NotchItem& item : storedItems())
            if (item.path == folder)
                return item;
        return std::nullopt;
    }

    // Right-clicks the tile and waits for its menu, a new override-redirect window; the
    // menu's height, or none.
    std::optional<int> openTileMenu(int index) {
        const auto before = inspector.viewableOverrideRedirectWindows();
        clickTile(index, 3);
        std::optional<unsigned long> menu;
        const bool appeared = waitUntil([&] {
            for (const unsigned long window : inspector.viewableOverrideRedirectWindows())
                if (std::find(before.begin(), before.end(), window) == before.end())
                    menu = window;
            return menu.has_value();
        });
        if (!appeared)
            return std::nullopt;
        return inspector.rootGeometry(*menu).height;
    }
};

TEST_F(ShelfTileTest, ALeftClickOpensTheTilesFolderAndRecordsTheOpening) {
    const std::string alpha = addProject("alpha");
    addProject("beta");
    addProject("gamma");
    // Dates are stored to the second: an opening long ago shows the new one for sure.
    std::vector<NotchItem> items = storedItems();
    ASSERT_EQ(items.size(), 3u);
    for (NotchItem& item : items)
        item.lastOpenedAt = item.createdAt - std::chrono::hours(1);
    writeItemsFile(ItemsJson::encode(items));
    const auto before = storedItem(alpha);
    ASSERT_TRUE(before);
    startApplication();
    ASSERT_TRUE(openShelf());
    ASSERT_TRUE(waitUntilSettled());

    clickTile(0, 1);
    expectFolderOpened(alpha);
    EXPECT_TRUE(waitUntil([&] {
        const auto after = storedItem(alpha);
        return after && !(after->lastOpenedAt == before->lastOpenedAt);
    })) << "lastOpenedAt was not recorded";
    EXPECT_EQ(storedItems().size(), 3u);
}

TEST_F(ShelfTileTest, ATileMenuHasOneEntryMoreWithAStartCommandAndOpensTheFolderByKeyboard) {
    addProject("plain");
    addProject("other");
    const std::string server = addProject("server", {"--command", "npm run dev"});
    startApplication();
    ASSERT_TRUE(openShelf());
    ASSERT_TRUE(waitUntilSettled());
    const std::size_t before = inspector.viewableOverrideRedirectWindows().size();
    const auto plainMenu = openTileMenu(0);
    ASSERT_TRUE(plainMenu) << "no menu appeared";
    hand.typeKey("Escape");
    ASSERT_TRUE(
        waitUntil([&] { return inspector.viewableOverrideRedirectWindows().size() == before; }));
    const auto serverMenu = openTileMenu(2);
    ASSERT_TRUE(serverMenu) << "no menu appeared";

    // Six entries and two dividers, against seven entries and two dividers.
    const int entry = *serverMenu - *plainMenu;
    EXPECT_GT(entry, 0);
    EXPECT_LT(6 * entry, *plainMenu);
    EXPECT_GT(8 * entry, *plainMenu);

    hand.typeKey("Down");
    hand.typeKey("Return");
    expectFolderOpened(server);
}

TEST_F(ShelfTileTest, ManyTilesStayInsideTheStripAndTheWheelReachesTheLast) {
    for (const char* name : {"alpha", "beta", "gamma"})
        addProject(name);
    startApplication();
    ASSERT_TRUE(openShelf());
    ASSERT_TRUE(waitUntilSettled());
    // The body beside the strip, from its sides: the left padding, and the right one with the
    // gear and the space before it.
    const auto besideTheStrip = [&] {
        const WindowRect window = inspector.rootGeometry(panel);
        const int left = window.x + shadowMargin + 8;
        const int right = window.x + window.width - shadowMargin - 8;
        return std::pair(inspector.screenArea({left, topInset, 6, 88}),
                         inspector.screenArea({right - 43, topInset, 43, 88}));
    };
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

TEST_F(ShelfTileTest, ThePanelNeverTakesTheKeyboardFocus) {
    const std::string alpha = addProject("alpha");
    addProject("beta");
    addProject("gamma");
    startApplication();
    const unsigned long editor = inspector.createWindow();
    ASSERT_TRUE(waitUntil([&] { return inspector.isViewable(editor); }));
    inspector.activate(editor);
    ASSERT_TRUE(waitUntil(
        [&] { return inspector.activeWindow() == editor && inspector.focusedWindow() == editor; }));

    ASSERT_TRUE(openShelf());
    ASSERT_TRUE(waitUntilSettled());
    EXPECT_EQ(inspector.focusedWindow(), editor);
    clickTile(0, 1);
    expectFolderOpened(alpha);
    EXPECT_EQ(inspector.focusedWindow(), editor);
    EXPECT_EQ(inspector.activeWindow(), editor);
}

} // namespace
} // namespace tidewell::testing
