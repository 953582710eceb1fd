#include "gui/app/StatusMenu.h"

#include "core/notify/InterfaceNotificationNames.h"
#include "gui/TestDesktop.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tidewell {
namespace {

// Each entry performs its action with its shortcut; opening the menu refreshes the check mark
// and holds the shelf while open, and a click alone does not move the mark: the application
// sets it once the change is made.
TEST(StatusMenuTest, HoldsTheEntriesInOrderAndRefreshesTheCheckMarkOnOpening) {
    NotificationCenter localCenter{[](MainQueue::Task task) { task(); }};
    StatusMenu status{localCenter, QIcon(":/symbols/rectangle.topthird.inset.filled.svg")};
    bool isInstalled = false;
    std::vector<StatusMenuAction> performed;
    std::vector<std::string> tracking;
    localCenter.addObserver(menuDidBeginTracking, [&] { tracking.push_back("began"); });
    localCenter.addObserver(menuDidEndTracking, [&] { tracking.push_back("ended"); });
    status.configure(
        statusMenuEntries(),
        {.perform = [&](StatusMenuAction action) { performed.push_back(action); },
         .menuWillOpen =
             [&] { status.setChecked(StatusMenuAction::toggleStartAtLogin, isInstalled); }});
    const QList<QAction*> actions = status.menu().actions();
    QStringList titles;
    for (const QAction* entry : actions)
        titles << (entry->isSeparator() ? "-" : entry->text() + entry->shortcut().toString());
    EXPECT_EQ(titles, (QStringList{"Show shelf", "Add folder...", "-", "Settings...Ctrl+,",
                                   "Open at login", "-", "Reveal data", "Quit TidewellCtrl+Q"}));
    for (const int index : {0, 1, 3, 4, 6, 7})
        actions[index]->trigger();
    EXPECT_EQ(performed,
              (std::vector{StatusMenuAction::showShelf, StatusMenuAction::addFolder,
                           StatusMenuAction::showSettings, StatusMenuAction::toggleStartAtLogin,
                           StatusMenuAction::revealData, StatusMenuAction::quit}));
    EXPECT_FALSE(actions[4]->isChecked());

    for (const bool installed : {true, false}) {
        isInstalled = installed;
        status.menu().popup(QPoint(200, 200));
        EXPECT_TRUE(testing::processEventsUntil([&] { return status.menu().isVisible(); }));
        status.menu().hide();
        EXPECT_EQ(actions[4]->isChecked(), installed);
    }
    EXPECT_EQ(tracking, (std::vector<std::string>{"began", "ended", "began", "ended"}));
}

} // namespace
} // namespace tidewell
