#include "gui/shelf/TileMenu.h"

#include "core/notify/InterfaceNotificationNames.h"
#include "gui/EventLoopWait.h"
#include "gui/ShelfFixture.h"

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QPointer>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

class TileMenuTest : public testing::ShelfFixture {
protected:
    QMenu* menuFor(const NotchItem& item) {
        return TileMenu::build(item, {store, actions, localCenter, settings});
    }
};

// Every entry has its symbol and runs its action on the item as stored now. While the menu
// is open the shelf stays open; a hidden menu deletes itself.
TEST_F(TileMenuTest, ListsTheEntriesInOrderWithTheirSymbolsAndRunsThem) {
    std::vector<std::string> tracking;
    localCenter.addObserver(menuDidBeginTracking, [&] { tracking.push_back("begin"); });
    localCenter.addObserver(menuDidEndTracking, [&] { tracking.push_back("end"); });
    const NotchItem item = pin("project");
    QPointer<QMenu> menu = menuFor(item);
    std::vector<std::string> titles;
    for (const QAction* action : menu->actions()) {
        titles.push_back(action->isSeparator() ? "---" : action->text().toStdString());
        EXPECT_TRUE(action->isSeparator() || !action->icon().isNull()) << titles.back();
    }
    EXPECT_EQ(titles, (std::vector<std::string>{"Open folder", "Open in Terminal", "---",
                                                "Start Codex", "Start Claude Code", "---",
                                                "Show in File Manager", "Configure"}));
    menu->popup(QPoint(100, 100));
    ASSERT_TRUE(testing::processEventsUntil([&] { return menu->isVisible(); }));
    store.update(item.id, [&](NotchItem& stored) { stored.path = root.makeFolder("moved"); });
    menu->actions().at(6)->trigger();
    EXPECT_EQ(workspace.calls,
              (std::vector<testing::FakeWorkspace::Call>{
                  {testing::FakeWorkspace::Operation::reveal, root.path() + "/moved"}}));
    menu->hide();
    queue.runUntilIdle();
    EXPECT_EQ(tracking, (std::vector<std::string>{"begin", "end"}));
    EXPECT_TRUE(testing::processEventsUntil([&] { return menu.isNull(); }));
}

TEST_F(TileMenuTest, IsDarkInTheBlackLookOnALightDesktopAndLightInGlass) {
    const NotchItem item = pin("project");
    ASSERT_GT(QApplication::palette().color(QPalette::Window).lightness(), 128);
    const auto meanLightness = [&](ShelfAppearance look) {
        settings.setShelfAppearance(look);
        const std::unique_ptr<QMenu> menu(menuFor(item));
        menu->adjustSize();
        const QImage image = menu->grab().toImage();
        long long sum = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                sum += image.pixelColor(x, y).lightness();
        return sum / (image.width() * image.height());
    };
    EXPECT_LT(meanLightness(ShelfAppearance::notchBlack), 64);
    EXPECT_GT(meanLightness(ShelfAppearance::warmGlass), 128);
}

} // namespace
} // namespace tidewell
