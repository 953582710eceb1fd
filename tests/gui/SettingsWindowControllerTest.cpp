#include "gui/settings/SettingsWindowController.h"

#include "gui/EventLoopWait.h"
#include "gui/ShelfFixture.h"
#include "gui/WarningRecorder.h"
#include "gui/settings/ItemSettingsModel.h"

#include <QCursor>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQuickItem>
#include <QQuickView>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>
#include <set>

namespace tidewell {
namespace {

using testing::processEventsUntil;

class SettingsWindowControllerTest : public testing::ShelfFixture {
protected:
    // Shown, drawn and holding the keyboard.
    bool show() {
        controller.show();
        return processEventsUntil(
            [&] { return window().isExposed() && QGuiApplication::focusWindow() == &window(); });
    }
    bool isHidden() {
        return processEventsUntil([&] { return !window().isVisible(); });
    }
    QQuickView& window() { return controller.window(); }

    SettingsWindowController controller{{.store = store,
                                         .appearance = settings,
                                         .launchAtLogin = launchAtLogin,
                                         .defaults = defaults,
                                         .localCenter = localCenter,
                                         .folders = folders,
                                         .images = images,
                                         .files = files,
                                         .iconCache = iconCache,
                                         .terminal = terminal,
                                         .codex = codex,
                                         .canHideFromScreenCapture = false}};
};

// Few sessions open the settings: until then they cost no window. Once made, the window is
// only hidden when closed and comes back centred, contents and all.
TEST_F(SettingsWindowControllerTest, ShowsOneWindowCentredThatKeysCloseAndControlNAddsAFolder) {
    pin("alpha");
    const qsizetype windows = QGuiApplication::allWindows().size();
    const testing::WarningRecorder warnings;
    QCursor::setPos(200, 150);
    EXPECT_EQ(QGuiApplication::allWindows().size(), windows);
    ASSERT_TRUE(show());
    EXPECT_EQ(QGuiApplication::allWindows().size(), windows + 1);
    EXPECT_EQ(window().status(), QQuickView::Ready);
    QQuickItem* contents = window().rootObject();
    const WId native = window().winId();

    // Escape is left to the end-to-end settings test.
    window().setPosition({10, 10});
    QTest::keyClick(&window(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(isHidden());
    ASSERT_TRUE(show());
    const QPoint centre = QGuiApplication::primaryScreen()->geometry().center();
    EXPECT_TRUE(processEventsUntil(
        [&] { return (window().geometry().center() - centre).manhattanLength() <= 2; }));
    EXPECT_EQ(window().rootObject(), contents);
    EXPECT_EQ(window().winId(), native) << "the window was made anew";

    folders.choice = root.makeFolder("chosen");
    QTest::keyClick(&window(), Qt::Key_N, Qt::ControlModifier);
    queue.runUntilIdle();
    EXPECT_EQ(folders.prompts, std::vector<std::string>{"Add"});
    ASSERT_EQ(store.favorites().size(), 2u);
    EXPECT_EQ(store.favorites().back().path, *folders.choice);
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(warnings.messages(), std::vector<std::string>{});
}

// The header's button, three pickers, two switches, four controls per project and five more
// in open details: all in turn, and each is scrolled into view.
TEST_F(SettingsWindowControllerTest, TabReachesEveryControlAndShowsIt) {
    for (const char* name : {"alpha", "beta", "gamma"})
        pin(name);
    ASSERT_TRUE(show());
    auto* rows = window().rootContext()->contextProperty("projects").value<ItemSettingsModel*>();
    ASSERT_NE(rows, nullptr);
    int frames = 0;
    // Counted on this thread, and no longer once the test's frame is gone.
    const QObject counter;
    QObject::connect(&window(), &QQuickWindow::frameSwapped, &counter, [&] { ++frames; });
    rows->toggleDetails(2);
    ASSERT_TRUE(processEventsUntil([&] { return frames > 0; })) << "the details were not laid out";

    std::set<QQuickItem*> reached;
    QQuickItem* first = nullptr;
    for (int press = 0; press < 40; ++press) {
        QTest::keyClick(&window(), Qt::Key_Tab);
        QQuickItem* focused = window().activeFocusItem();
        ASSERT_NE(focused, nullptr);
        if (focused == first)
            break;
        first = first ? first : focused;
        reached.insert(focused);
        ASSERT_TRUE(processEventsUntil([&] {
            const QRectF shown =
                focused->mapRectToItem(window().contentItem(), focused->boundingRect());
            return shown.top() >= 0 && shown.bottom() <= window().height();
        })) << "focus went below the window: "
            << focused->metaObject()->className();
    }
    EXPECT_EQ(reached.size(), 1u + 3 + 2 + 4 * 3 + 5);
}

} // namespace
} // namespace tidewell
