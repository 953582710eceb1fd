#include "gui/ShelfView.h"

#include "core/icons/IconCache.h"
#include "core/shelf/ShelfLayout.h"
#include "gui/EventLoopWait.h"
#include "gui/PanelMargins.h"
#include "gui/ShelfFixture.h"
#include "gui/WarningRecorder.h"
#include "support/FakeBackgroundQueue.h"
#include "support/FakePanelWindow.h"
#include "support/FakePointer.h"

#include <QImage>
#include <QQuickView>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using testing::WarningRecorder;

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
};

TEST_F(ShelfViewTest, LoadsWithoutWarningsAndDrawsTheExpandedShelf) {
    pin("project");
    const WarningRecorder warnings;
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
    std::optional<Outline> outline;
    QObject::connect(&shelf, &ShelfView::outlineChanged,
                     [&](const QRectF& rect, qreal top, qreal bottom) {
                         outline = Outline{rect, top, bottom};
                     });
    view.show();
    ASSERT_TRUE(testing::processEventsUntil([&] { return view.isExposed(); }));
    EXPECT_EQ(view.status(), QQuickView::Ready);

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

} // namespace
} // namespace tidewell
