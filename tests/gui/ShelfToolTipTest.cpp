#include "gui/shelf/ShelfToolTip.h"

#include "gui/TestDesktop.h"
#include "support/X11TestClient.h"

#include <QQuickWindow>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using testing::processEventsUntil;
using testing::WindowRect;
using testing::X11TestClient;

// A tile alone in a window of its own (override-redirect, so exactly where it is asked to be) on
// the program's 1920 x 1080 display, whose tooltip is a path wider than the tile. The tooltip
// is a window of its own that takes no pointer events, under the tile or, with no room there,
// above it, and wholly on the screen.
TEST(ShelfToolTip, ShowsInAWindowOfItsOwnBelowTheTileAndOnTheScreen) {
    const std::tuple<const char*, QPoint, bool, bool> cases[] = {
        {"under the notch", {930, 30}, true, true},
        {"at the right edge", {1860, 30}, true, false},
        {"at the bottom edge", {400, 1017}, false, true}};
    const QSize tileSize(60, 63);
    X11TestClient inspector;
    for (const auto& [name, place, isBelow, isCentred] : cases) {
        SCOPED_TRACE(name);
        QQuickWindow owner;
        owner.setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
        owner.setGeometry(QRect(place, tileSize));
        owner.show();
        ASSERT_TRUE(processEventsUntil([&] { return owner.isExposed(); }));
        QQuickItem tile(owner.contentItem());
        tile.setSize(tileSize);
        const auto before = inspector.viewableOverrideRedirectWindows();

        ShelfToolTip toolTip;
        toolTip.setTarget(&tile);
        toolTip.setProperty("text", "/home/someone/Projects/a project with a long name");
        toolTip.setShown(true);
        unsigned long shown = 0;
        ASSERT_TRUE(processEventsUntil([&] {
            for (const unsigned long window : inspector.viewableOverrideRedirectWindows())
                if (!std::ranges::count(before, window))
                    shown = window;
            return shown != 0;
        })) << "no tooltip window appeared";

        const WindowRect found = inspector.rootGeometry(shown);
        const QRect rect(found.x, found.y, found.width, found.height);
        EXPECT_GT(rect.width(), tileSize.width());
        EXPECT_TRUE(QRect(0, 0, 1920, 1080).contains(rect)) << found;
        EXPECT_TRUE(isBelow ? rect.top() >= place.y() + tileSize.height()
                            : rect.bottom() < place.y())
            << found;
        const double offCentre = rect.x() + rect.width() / 2.0 - (place.x() + 30);
        EXPECT_TRUE(!isCentred || std::abs(offCentre) <= 1) << found;
        EXPECT_TRUE(inspector.inputShape(shown).empty()) << "the tooltip takes the pointer";

        owner.hide();
        EXPECT_TRUE(processEventsUntil([&] { return !inspector.isViewable(shown); }))
            << "the tooltip stayed after its tile's window";
    }
}

} // namespace
} // namespace tidewell
