#include "gui/windowsystem/ScreenCoordinates.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

// A 1920 x 1080 primary screen and, right of it and 200 pixels lower, a 1280 x 720 one at a
// ratio of 2, whose 2560 x 1440 device pixels start where Qt places its origin.
const QRect primary(0, 0, 1920, 1080);
const std::vector<ScreenScale> screens = {{primary, 1}, {QRect(1920, 200, 1280, 720), 2}};

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

TEST(ScreenCoordinates, APixelIsTheBottomLeftCornerOfItsSquareOnTheScreenItIsOn) {
    struct Case {
        QPoint native;
        Point expected;
    };
    for (const auto& [native, expected] : std::vector<Case>{
             {{0, 0}, {0, 1079}},
             {{100, 80}, {100, 999}},
             {{1919, 1079}, {1919, 0}},
             {{1920, 200}, {1920, 879.5}}, // the second screen's top row, in half points
             {{1920, 500}, {1920, 729.5}}, // its left column, not the primary's right edge
             {{1920 + 1000, 200 + 600}, {1920 + 500, 579.5}},
             {{1920 + 2559, 200 + 1439}, {1920 + 1279.5, 160}},
             {{1920, 100}, {1920, 979}}, // on no screen: as on the first
         })
        EXPECT_EQ(corePixel(native, screens, primary), expected) << native.x() << "," << native.y();
    EXPECT_EQ(corePixel({1000, 0}, {{QRect(0, 0, 960, 540), 2}}, QRect(0, 0, 960, 540)),
              (Point{500, 539.5}));

    // The top row of every screen lies inside the screen, below its excluded top edge.
    for (const ScreenScale& screen : screens) {
        const Rect frame = coreRect(screen.geometry, primary);
        const Point topRow = corePixel(screen.geometry.topLeft() + QPoint(7, 0), screens, primary);
        EXPECT_TRUE(frame.contains(topRow)) << topRow.y << " beyond " << frame.maxY();
    }
}

} // namespace
} // namespace tidewell
