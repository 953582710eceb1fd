#include "gui/shelf/ShelfView.h"

#include "core/shelf/ShelfLayout.h"
#include "gui/EventLoopWait.h"
#include "gui/ShelfFixture.h"
#include "gui/WarningRecorder.h"
#include "gui/windowsystem/PanelMargins.h"
#include "support/FakeBackgroundQueue.h"
#include "support/FakePanelWindow.h"
#include "support/FakePointer.h"

#include <QImage>
#include <QQuickItem>
#include <QQuickView>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

// The text item below `item` showing this text (delegates of lists are no QObject children
// of theirs).
QQuickItem* textItem(QQuickItem* item, const QString& text) {
    if (item->inherits("QQuickText") && item->property("text").toString() == text)
        return item;
    for (QQuickItem* child : item->childItems())
        if (QQuickItem* found = textItem(child, text))
            return found;
    return nullptr;
}

class ShelfViewTest : public testing::ShelfFixture {
protected:
    ShelfLayout layout{queue};
    testing::FakePointer pointer;
    testing::FakePanelWindow panel;
    testing::FakeBackgroundQueue background;
};

// The expanded shelf is black inside its outline and transparent around it, the outline is
// announced for the window's shape, and initials too long for their icon shrink into it.
TEST_F(ShelfViewTest, LoadsWithoutWarningsAndDrawsTheExpandedShelfAndItsTiles) {
    pin("project");
    const NotchItem wide = pin("wide");
    store.update(wide.id, [](NotchItem& item) { item.initials = "WWWWWWWWWW"; });
    queue.runUntilIdle();
    const testing::WarningRecorder warnings;
    QQuickView view;
    view.setColor(Qt::transparent);
    view.resize(460, 150);
    ShelfView shelf(view, {.layout = layout,
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
    ASSERT_TRUE(testing::processEventsUntil([&] { return view.isExposed(); }));
    ASSERT_EQ(view.status(), QQuickView::Ready);
    QRectF outline;
    qreal radii[2] = {};
    QObject::connect(&shelf, &ShelfView::outlineChanged,
                     [&](const QRectF& rect, qreal top, qreal bottom) {
                         outline = rect;
                         radii[0] = top;
                         radii[1] = bottom;
                     });

    layout.setTopInset(28);
    layout.setCollapsedSize({180, 28});
    layout.setExpandedSize({428, 116}); // the view's width less the shadow margins
    layout.setIsBackgroundExpanded(true);
    layout.setIsExpanded(true);
    const QRectF expanded(panelShadowMargin, 0, 428, 116);
    ASSERT_TRUE(testing::processEventsUntil([&] { return outline == expanded && radii[1] == 18; }));
    EXPECT_EQ(radii[0], 8);
    QQuickItem* initials = nullptr;
    ASSERT_TRUE(testing::processEventsUntil(
        [&] { return initials = textItem(view.rootObject(), "WWWWWWWWWW"); }));

    const QImage frame = view.grabWindow();
    const auto pixel = [&](qreal x, qreal y) {
        return frame.pixelColor(QPointF(x, y).toPoint() * frame.devicePixelRatio());
    };
    const qreal left = expanded.left();
    for (const QPointF body :
         {QPointF(left + 14, 14), QPointF(left + 14, 60), QPointF(left + 414, 60)})
        EXPECT_EQ(pixel(body.x(), body.y()), QColor(Qt::black)) << body.x() << ", " << body.y();
    for (const QPointF outside :
         {QPointF(left + 3, 40), QPointF(left + 425, 40), QPointF(left + 100, 125), QPointF(4, 4)})
        EXPECT_EQ(pixel(outside.x(), outside.y()).alpha(), 0) << outside.x() << ", " << outside.y();
    // Nothing of the long initials is drawn beside their icon.
    const QRect icon =
        initials->mapRectToScene({0, 0, initials->width(), initials->height()}).toRect();
    for (int dy = -4; dy <= 4; ++dy)
        for (const int x : {icon.left() - 3, icon.right() + 3})
            EXPECT_LT(pixel(x, icon.center().y() + dy).lightness(), 100) << x << ", " << dy;
    EXPECT_EQ(warnings.messages(), std::vector<std::string>{});
}

} // namespace
} // namespace tidewell
