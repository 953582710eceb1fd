#include "gui/settings/SettingsWindowController.h"

#include "gui/EventLoopWait.h"
#include "gui/SettingsFixture.h"
#include "gui/WarningRecorder.h"
#include "gui/settings/ItemSettingsModel.h"

#include <QCursor>
#include <QGuiApplication>
#include <QImage>
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

// The first item of that name drawn inside `item`, depth first.
QQuickItem* descendant(QQuickItem* item, const QString& name) {
    if (item->objectName() == name)
        return item;
    for (QQuickItem* child : item->childItems())
        if (QQuickItem* found = descendant(child, name))
            return found;
    return nullptr;
}

class SettingsWindowControllerTest : public testing::SettingsFixture {
protected:
    // Shown, drawn and holding the keyboard.
    bool show() {
        controller.show();
        return processEventsUntil(
            [&] { return window.isExposed() && QGuiApplication::focusWindow() == &window; });
    }
    bool isHidden() {
        return processEventsUntil([&] { return !window.isVisible(); });
    }
    bool isCentred() {
        const QPoint centre = QGuiApplication::primaryScreen()->geometry().center();
        return processEventsUntil(
            [&] { return (window.geometry().center() - centre).manhattanLength() <= 2; });
    }

    SettingsWindowController::Services services() {
        return {.store = store,
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
                .canHideFromScreenCapture = false};
    }

    SettingsWindowController controller{services()};
    QQuickView& window = controller.window();
};

// Few sessions open the settings: until then they cost no window, engine or models.
TEST_F(SettingsWindowControllerTest, MakesItsWindowOnFirstUse) {
    const qsizetype windows = QGuiApplication::allWindows().size();
    SettingsWindowController unused(services());
    EXPECT_EQ(QGuiApplication::allWindows().size(), windows);
    unused.window();
    EXPECT_EQ(QGuiApplication::allWindows().size(), windows + 1);
}

TEST_F(SettingsWindowControllerTest, ShowsOneWindowCentredOnThePointersScreenWithoutWarnings) {
    pin("alpha");
    const testing::WarningRecorder warnings;
    QCursor::setPos(200, 150);
    ASSERT_TRUE(show());
    EXPECT_EQ(window.status(), QQuickView::Ready);
    EXPECT_EQ(window.title(), "Tidewell Settings");
    EXPECT_EQ(window.size(), QSize(700, 540));
    EXPECT_EQ(window.minimumSize(), QSize(680, 500));
    EXPECT_TRUE(isCentred());

    // Closed, it is only hidden; moved meanwhile, it comes back centred, contents and all.
    QQuickItem* contents = window.rootObject();
    const WId native = window.winId();
    window.close();
    ASSERT_TRUE(isHidden());
    window.setPosition({10, 10});
    ASSERT_TRUE(show());
    EXPECT_TRUE(isCentred());
    EXPECT_EQ(window.rootObject(), contents);
    EXPECT_EQ(window.winId(), native) << "the window was made anew";
    EXPECT_EQ(warnings.messages(), std::vector<std::string>{});
}

TEST_F(SettingsWindowControllerTest, EscapeAndControlWCloseAndControlNAddsAFolder) {
    ASSERT_TRUE(show());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(isHidden());

    ASSERT_TRUE(show());
    QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(isHidden());

    ASSERT_TRUE(show());
    folders.choice = root.makeFolder("chosen");
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    queue.runUntilIdle();
    EXPECT_EQ(folders.prompts, std::vector<std::string>{"Add"});
    ASSERT_EQ(store.favorites().size(), 1u);
    EXPECT_EQ(store.favorites().front().path, *folders.choice);
    EXPECT_TRUE(window.isVisible());
}

// Each keystroke is saved and read back into the field, which keeps the text and the cursor.
// The field has no frame until it has the keyboard.
TEST_F(SettingsWindowControllerTest, TypingInANameFieldSavesEachKeyAndKeepsTheCursor) {
    const NotchItem item = pin("alpha");
    ASSERT_TRUE(show());
    QQuickItem* field = descendant(window.contentItem(), "nameField");
    ASSERT_NE(field, nullptr);
    // Plain: no frame at rest, the card shows up to the text.
    const QImage shown = window.grabWindow();
    const QPoint edge = field->mapToScene(QPointF(0, field->height() / 2)).toPoint();
    EXPECT_EQ(shown.pixelColor(edge * shown.devicePixelRatio()),
              shown.pixelColor((edge + QPoint(3, 0)) * shown.devicePixelRatio()));
    field->forceActiveFocus();
    field->setProperty("cursorPosition", 2);
    const std::size_t before = saves();

    QTest::keyClick(&window, 'X', Qt::ShiftModifier);
    QTest::keyClick(&window, 'Y', Qt::ShiftModifier);
    EXPECT_EQ(saves() - before, 2u);
    EXPECT_EQ(database.load().at(0).name, "alXYpha");
    EXPECT_EQ(field->property("text").toString(), "alXYpha");
    EXPECT_EQ(field->property("cursorPosition").toInt(), 4);
}

// The header's button, three pickers, two switches, four controls per project and five more
// in open details: all in turn, and each is scrolled into view.
TEST_F(SettingsWindowControllerTest, TabReachesEveryControlAndShowsIt) {
    for (const char* name : {"alpha", "beta", "gamma"})
        pin(name);
    ASSERT_TRUE(show());
    auto* rows = window.rootContext()->contextProperty("projects").value<ItemSettingsModel*>();
    ASSERT_NE(rows, nullptr);
    int frames = 0;
    // Counted on this thread, and no longer once the test's frame is gone.
    const QObject counter;
    QObject::connect(&window, &QQuickWindow::frameSwapped, &counter, [&] { ++frames; });
    rows->toggleDetails(2);
    ASSERT_TRUE(processEventsUntil([&] { return frames > 0; })) << "the details were not laid out";

    std::set<QQuickItem*> reached;
    QQuickItem* first = nullptr;
    for (int press = 0; press < 40; ++press) {
        QTest::keyClick(&window, Qt::Key_Tab);
        QQuickItem* focused = window.activeFocusItem();
        ASSERT_NE(focused, nullptr);
        if (focused == first)
            break;
        first = first ? first : focused;
        reached.insert(focused);
        ASSERT_TRUE(processEventsUntil([&] {
            const QRectF shown =
                focused->mapRectToItem(window.contentItem(), focused->boundingRect());
            return shown.top() >= 0 && shown.bottom() <= window.height();
        })) << "focus went below the window: "
            << focused->metaObject()->className();
    }
    EXPECT_EQ(reached.size(), 1u + 3 + 2 + 4 * 3 + 5);
}

} // namespace
} // namespace tidewell
