#include "gui/ScreenCoordinates.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

// A 1920 x 1080 primary screen and, right of it, a 1280 x 800 one at a ratio of 2, whose
// 2560 x 1600 device pixels start where Qt places its origin.
const QRect primary(0, 0, 1920, 1080);
const std::vector<ScreenScale> screens = {{primary, 1}, {QRect(1920, 0, 1280, 800), 2}};

TEST(ScreenCoordinates, PointsAndRectanglesTurnUpsideDownAroundThePrimaryScreen) {
    EXPECT_EQ(corePoint({100, 80}, primary), (Point{100, 1000}));
    EXPECT_EQ(qtPoint({100, 1000}, primary), QPointF(100, 80));
    // The second screen's top edge is level with the primary's: its frame ends at 1080.
    const Rect second = coreRect(QRectF(1920, 0, 1280, 800), primary);
    EXPECT_EQ(second, (Rect{{1920, 280}, {1280, 800}}));
    EXPECT_EQ(second.maxY(), 1080);
    EXPECT_EQ(qtRect(second, primary), QRectF(1920, 0, 1280, 800));
    EXPECT_EQ(qtRect({{860.5, 992}, {199, 88}}, primary), QRectF(860.5, 0, 199, 88));

    // A primary screen away from the desktop's origin is still core's origin.
    const QRect shifted(1280, 200, 1920, 1080);
    EXPECT_EQ(corePoint({1280, 1280}, shifted), (Point{0, 0}));
    EXPECT_EQ(qtPoint({10, 1080}, shifted), QPointF(1290, 200));
}

TEST(ScreenCoordinates, DevicePixelsScaleFromTheOriginOfTheScreenTheyAreOn) {
    EXPECT_EQ(logicalFromNative({100, 50}, screens), QPointF(100, 50));
    EXPECT_EQ(logicalFromNative({1920, 0}, screens), QPointF(1920, 0));
    EXPECT_EQ(logicalFromNative({1920 + 1000, 600}, screens), QPointF(1920 + 500, 300));
    // Below the primary's 1080 rows, but still on the second screen's 1600.
    EXPECT_EQ(logicalFromNative({1920 + 2559, 1599}, screens), QPointF(1920 + 1279.5, 799.5));
    EXPECT_EQ(logicalFromNative({-5, -5}, screens), QPointF(-5, -5)); // on no screen
    EXPECT_EQ(logicalFromNative({1000, 600}, {{QRect(0, 0, 960, 540), 2}}), QPointF(500, 300));
}

} // namespace
} // namespace tidewell
