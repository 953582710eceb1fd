#include "gui/shelf/ShelfView.h"

#include "core/icons/IconCache.h"
#include "core/shelf/ShelfLayout.h"
#include "gui/EventLoopWait.h"
#include "gui/ShelfFixture.h"
#include "gui/WarningRecorder.h"
#include "gui/windowsystem/PanelMargins.h"
#include "support/FakeBackgroundQueue.h"
#include "support/FakePanelWindow.h"
#include "support/FakePointer.h"

#include <QAnimationDriver>
#include <QCoreApplication>
#include <QFont>
#include <QImage>
#include <QQuickItem>
#include <QQuickView>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using testing::WarningRecorder;

// Plays the animations of every window on a clock that only the test moves. Only one clock
// can be installed in a process, and the first window's render loop installs its own: make
// it before any window (ctest runs each test in a process of its own).
class ManualAnimationClock : public QAnimationDriver {
public:
    ManualAnimationClock() { install(); }
    ~ManualAnimationClock() override { uninstall(); }
    // Animations begin on a queued call: deliver it before the time moves.
    void advanceBy(int milliseconds) {
        QCoreApplication::processEvents();
        elapsed_ += milliseconds;
        advance();
    }
    qint64 elapsed() const override { return elapsed_; }

private:
    qint64 elapsed_ = 0;
};

// The item's opacity as drawn: its own times that of everything it lies in.
qreal drawnOpacity(const QQuickItem* item) {
    return item ? item->opacity() * drawnOpacity(item->parentItem()) : 1;
}

struct Outline {
    QRectF rect;
    qreal topRadius = 0;
    qreal bottomRadius = 0;
};

class ShelfViewTest : public testing::ShelfFixture {
protected:
    ShelfLayout layout{queue};
    IconCache iconCache{files, database.dataFolder().iconsFolder()};
    testing::FakePointer pointer;
    testing::FakePanelWindow panel;
    testing::FakeBackgroundQueue background;

    std::unique_ptr<ShelfView> load(QQuickView& view) {
        view.setColor(Qt::transparent);
        view.resize(460, 150);
        auto shelf =
            std::make_unique<ShelfView>(view, ShelfView::Services{.layout = layout,
                                                                  .store = store,
                                                                  .appearance = settings,
                                                                  .tileActions = actions,
                                                                  .localCenter = localCenter,
                                                                  .iconCache = iconCache,
                                                                  .pointer = pointer,
                                                                  .panel = panel,
                                                                  .files = files,
                                                                  .background = background,
                                                                  .queue = queue,
                                                                  .openSettings = [] {}});
        view.show();
        EXPECT_TRUE(testing::processEventsUntil([&] { return view.isExposed(); }));
        EXPECT_EQ(view.status(), QQuickView::Ready);
        return shelf;
    }
    void expand() {
        layout.setTopInset(28);
        layout.setExpandedSize({428, 116});
        layout.setIsBackgroundExpanded(true);
        layout.setIsExpanded(true);
    }
    // The text item below `item` showing this text (delegates of lists are no QObject
    // children of theirs).
    static QQuickItem* textItem(QQuickItem* item, const QString& text) {
        if (item->inherits("QQuickText") && item->property("text").toString() == text)
            return item;
        for (QQuickItem* child : item->childItems())
            if (QQuickItem* found = textItem(child, text))
                return found;
        return nullptr;
    }
    static QQuickItem* textItem(QQuickView& view, const QString& text) {
        return textItem(view.rootObject(), text);
    }
};

TEST_F(ShelfViewTest, LoadsWithoutWarningsAndDrawsTheExpandedShelf) {
    pin("project");
    const WarningRecorder warnings;
    QQuickView view;
    const auto shelf = load(view);
    std::optional<Outline> outline;
    QObject::connect(shelf.get(), &ShelfView::outlineChanged,
                     [&](const QRectF& rect, qreal top, qreal bottom) {
                         outline = Outline{rect, top, bottom};
                     });

    layout.setTopInset(28);
    layout.setCollapsedSize({180, 28});
    layout.setExpandedSize({428, 116}); // the view's width less the shadow margins
    layout.setIsBackgroundExpanded(true);
    layout.setIsExpanded(true);

    const QRectF expanded(panelShadowMargin, 0, 428, 116);
    ASSERT_TRUE(testing::processEventsUntil(
        [&] { return outline && outline->rect == expanded && outline->bottomRadius == 18; }));
    EXPECT_EQ(outline->topRadius, 8);

    const QImage frame = view.grabWindow();
    const qreal scale = frame.devicePixelRatio();
    const auto pixel = [&](qreal x, qreal y) {
        return frame.pixelColor(QPointF(x, y).toPoint() * scale);
    };
    const qreal left = expanded.left();
    for (const QPointF body :
         {QPointF(left + 14, 14), QPointF(left + 14, 60), QPointF(left + 414, 60)})
        EXPECT_EQ(pixel(body.x(), body.y()), QColor(Qt::black)) << body.x() << ", " << body.y();
    for (const QPointF outside :
         {QPointF(left + 3, 40), QPointF(left + 425, 40), QPointF(left + 100, 125), QPointF(4, 4)})
        EXPECT_EQ(pixel(outside.x(), outside.y()).alpha(), 0) << outside.x() << ", " << outside.y();

    EXPECT_TRUE(warnings.messages().empty()) << warnings.messages().front();
}

TEST_F(ShelfViewTest, TypeKeepsItsFractionalSizesAndLongInitialsShrinkAndStayInTheirIcon) {
    const NotchItem project = pin("project");
    const NotchItem wide = pin("wide");
    store.update(wide.id, [](NotchItem& item) { item.initials = "WWWWWWWWWW"; });
    queue.runUntilIdle();
    expand();
    QQuickView view;
    const auto shelf = load(view);

    const struct {
        std::string text;
        qreal pixels;
    } texts[] = {{"Add project", 11.5},
                 {"tide add .", 9.5},
                 {project.name, 10},
                 {project.initials, 40 * 0.33},
                 {"WWWWWWWWWW", 40 * 0.33 * 0.65}};
    for (const auto& [text, pixels] : texts) {
        const QQuickItem* item = nullptr;
        ASSERT_TRUE(testing::processEventsUntil([&] {
            return item = textItem(view, QString::fromStdString(text));
        })) << text;
        EXPECT_NEAR(item->property("font").value<QFont>().pointSizeF() * 4 / 3, pixels, 0.01)
            << text;
    }

    // Nothing of the initials is drawn beside their icon.
    const QImage frame = view.grabWindow();
    QQuickItem* initials = textItem(view, "WWWWWWWWWW");
    const QRect icon =
        initials->mapRectToScene({0, 0, initials->width(), initials->height()}).toRect();
    const qreal scale = frame.devicePixelRatio();
    for (int dy = -4; dy <= 4; ++dy)
        for (const int x : {icon.left() - 3, icon.right() + 3}) {
            const QPoint point(x, icon.center().y() + dy);
            EXPECT_LT(frame.pixelColor(point * scale).lightness(), 100) << x << ", " << point.y();
        }
}

TEST_F(ShelfViewTest, NeighboursSlideAndTheEmptyTileCrossFadesWithTheSlotTransition) {
    const NotchItem alpha = pin("alpha");
    const NotchItem beta = pin("beta");
    expand();
    ManualAnimationClock clock;
    QQuickView view;
    const auto shelf = load(view);
    // Where beta's tile lies in the strip, and how visible the invitation to add a project is.
    QQuickItem* betaTile = nullptr;
    ASSERT_TRUE(testing::processEventsUntil([&] { return betaTile = textItem(view, "beta"); }));
    QQuickItem* strip = betaTile;
    while (!strip->inherits("QQuickListView"))
        strip = strip->parentItem();
    const auto betaX = [&] {
        return betaTile->mapToItem(strip->property("contentItem").value<QQuickItem*>(), {}).x();
    };
    const auto invitation = [&] { return drawnOpacity(textItem(view, "Add project")); };
    const qreal before = betaX();
    EXPECT_EQ(invitation(), 0);

    // The strip lays out its tiles anew, and the animations begin.
    const auto unpin = [&](const NotchItem& item) {
        store.unpin(item.id);
        queue.runUntilIdle();
        strip->ensurePolished();
        QCoreApplication::processEvents();
    };
    unpin(alpha);
    clock.advanceBy(110);
    EXPECT_GT(betaX(), before - 66);
    EXPECT_LT(betaX(), before);
    clock.advanceBy(110);
    EXPECT_EQ(betaX(), before - 66);

    unpin(beta);
    clock.advanceBy(110);
    EXPECT_GT(invitation(), 0);
    EXPECT_LT(invitation(), 1);
    clock.advanceBy(110);
    EXPECT_EQ(invitation(), 1);
}

} // namespace
} // namespace tidewell
