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

using namespace std::chrono_literals;

class TileMenuTest : public testing::ShelfFixture {
protected:
    TileMenuTest() {
        localCenter.addObserver(menuDidBeginTracking, [this] { tracking.push_back("begin"); });
        localCenter.addObserver(menuDidEndTracking, [this] { tracking.push_back("end"); });
    }

    QMenu* menuFor(const NotchItem& item) {
        return TileMenu::build(item, {store, actions, localCenter, settings});
    }
    static std::vector<std::string> lines(const QMenu& menu) {
        std::vector<std::string> titles;
        for (const QAction* action : menu.actions())
            titles.push_back(action->isSeparator() ? "---" : action->text().toStdString());
        return titles;
    }
    static QAction* entry(const QMenu& menu, const QString& title) {
        for (QAction* action : menu.actions())
            if (action->text() == title)
                return action;
        return nullptr;
    }
    Date storedLastOpenedAt() { return database.load().at(0).lastOpenedAt; }

    std::vector<std::string> tracking;
};

TEST_F(TileMenuTest, ListsTheEntriesInOrderWithTheStartCommandOnlyWhenThereIsOne) {
    NotchItem item = pin("project");
    const std::vector<std::string> withoutCommand = {
        "Open folder", "Open in Terminal",     "---",      "Start Codex", "Start Claude Code",
        "---",         "Show in File Manager", "Configure"};
    std::vector<std::string> withCommand = withoutCommand;
    withCommand.insert(withCommand.begin() + 5, "Run start command");

    const std::unique_ptr<QMenu> plain(menuFor(item));
    EXPECT_EQ(lines(*plain), withoutCommand);
    item.launchCommand = "  ";
    const std::unique_ptr<QMenu> blanks(menuFor(item));
    EXPECT_EQ(lines(*blanks), withCommand);
    for (const QAction* action : blanks->actions())
        EXPECT_TRUE(action->isSeparator() || !action->icon().isNull())
            << action->text().toStdString();
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

TEST_F(TileMenuTest, OpenFolderRecordsTheOpeningWhileShowInFileManagerDoesNot) {
    const NotchItem item = pin("project");
    const Date before = storedLastOpenedAt();
    clock.advance(60s);

    const std::unique_ptr<QMenu> menu(menuFor(item));
    entry(*menu, "Show in File Manager")->trigger();
    EXPECT_EQ(storedLastOpenedAt(), before);
    entry(*menu, "Open folder")->trigger();
    EXPECT_GT(storedLastOpenedAt(), before);

    using Operation = testing::FakeWorkspace::Operation;
    EXPECT_EQ(workspace.calls,
              (std::vector<testing::FakeWorkspace::Call>{{Operation::reveal, item.path},
                                                         {Operation::openFolder, item.path}}));
}

TEST_F(TileMenuTest, AnOpenMenuPostsMenuTrackingAndGoesAwayWhenHidden) {
    const NotchItem item = pin("project");
    QPointer<QMenu> menu = menuFor(item);
    menu->popup(QPoint(100, 100));
    ASSERT_TRUE(testing::processEventsUntil([&] { return menu->isVisible(); }));
    queue.runUntilIdle();
    EXPECT_EQ(tracking, (std::vector<std::string>{"begin"}));

    menu->hide();
    queue.runUntilIdle();
    EXPECT_EQ(tracking, (std::vector<std::string>{"begin", "end"}));
    EXPECT_TRUE(testing::processEventsUntil([&] { return menu.isNull(); }))
        << "a hidden menu deletes itself";
}

} // namespace
} // namespace tidewell
