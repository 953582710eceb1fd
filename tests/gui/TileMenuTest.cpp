#include "gui/shelf/TileMenu.h"

#include "core/notify/InterfaceNotificationNames.h"
#include "gui/ShelfFixture.h"
#include "gui/TestDesktop.h"

#include <QAction>
#include <QMenu>
#include <QPointer>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using TileMenuTest = testing::ShelfFixture;

// Every entry has its symbol and runs its action on the item as stored now. While the menu
// is open the shelf stays open; a hidden menu deletes itself.
TEST_F(TileMenuTest, ListsTheEntriesInOrderWithTheirSymbolsAndRunsThem) {
    std::vector<std::string> tracking;
    localCenter.addObserver(menuDidBeginTracking, [&] { tracking.push_back("begin"); });
    localCenter.addObserver(menuDidEndTracking, [&] { tracking.push_back("end"); });
    const NotchItem item = pin("project");
    QPointer<QMenu> menu = TileMenu::build(item, {store, actions, localCenter, settings});
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

} // namespace
} // namespace tidewell
