#include "gui/app/StatusMenu.h"

#include "core/notify/InterfaceNotificationNames.h"
#include "gui/EventLoopWait.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tidewell {
namespace {

using testing::pumpEventsUntil;

class StatusMenuTest : public ::testing::Test {
protected:
    StatusMenuTest() {
        localCenter.addObserver(menuDidBeginTracking, [this] { tracking.push_back("began"); });
        localCenter.addObserver(menuDidEndTracking, [this] { tracking.push_back("ended"); });
        status.configure(
            statusMenuEntries(),
            {.perform = [this](StatusMenuAction action) { performed.push_back(action); },
             .menuWillOpen =
                 [this] { status.setChecked(StatusMenuAction::toggleStartAtLogin, isInstalled); }});
    }

    QAction* action(int index) { return status.menu().actions().at(index); }
    void openAndCloseMenu() {
        status.menu().popup(QPoint(200, 200));
        EXPECT_TRUE(pumpEventsUntil([this] { return status.menu().isVisible(); }));
        status.menu().hide();
    }

    NotificationCenter localCenter{[](MainQueue::Task task) { task(); }};
    StatusMenu status{localCenter, QIcon(":/symbols/rectangle.topthird.inset.filled.svg")};
    bool isInstalled = false;
    std::vector<StatusMenuAction> performed;
    std::vector<std::string> tracking;
};

TEST_F(StatusMenuTest, TheMenuHoldsTheEntriesInOrderWithTheirShortcuts) {
    QStringList titles;
    for (const QAction* entry : status.menu().actions())
        titles << (entry->isSeparator() ? "-" : entry->text());
    EXPECT_EQ(titles, (QStringList{"Show shelf", "Add folder...", "-", "Settings...",
                                   "Open at login", "-", "Reveal data", "Quit Tidewell"}));
    EXPECT_EQ(action(3)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Comma));
    EXPECT_EQ(action(7)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
    for (const int index : {0, 1, 4, 6})
        EXPECT_TRUE(action(index)->shortcut().isEmpty()) << index;
    for (int index = 0; index < 8; ++index)
        EXPECT_EQ(action(index)->isCheckable(), index == 4) << index;

    for (const int index : {0, 1, 3, 6, 7})
        action(index)->trigger();
    EXPECT_EQ(performed, (std::vector{StatusMenuAction::showShelf, StatusMenuAction::addFolder,
                                      StatusMenuAction::showSettings, StatusMenuAction::revealData,
                                      StatusMenuAction::quit}));
}

TEST_F(StatusMenuTest, OpeningRefreshesTheCheckMarkAndHoldsTheShelfWhileOpen) {
    isInstalled = true;
    openAndCloseMenu();
    EXPECT_TRUE(action(4)->isChecked());
    EXPECT_EQ(tracking, (std::vector<std::string>{"began", "ended"}));

    isInstalled = false;
    openAndCloseMenu();
    EXPECT_FALSE(action(4)->isChecked());

    // The click alone does not move the mark: the application sets it once the change is made.
    action(4)->trigger();
    EXPECT_EQ(performed, std::vector{StatusMenuAction::toggleStartAtLogin});
    EXPECT_FALSE(action(4)->isChecked());
}

} // namespace
} // namespace tidewell
