#include "gui/windowsystem/ScreenCoordinates.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

// A 1920 x 1080 primary screen and, right of it and 200 pixels lower, a 1280 x 720 one at a
// ratio of 2, whose 2560 x 1440 device pixels start where Qt places its origin.
const QRect primary(0, 0, 1920, 1080);
const std::vector<ScreenScale> screens = {{primary, 1}, {QRect(1920, 200, 1280, 720), 2}};

// A pixel is the bottom-left corner of its square on the screen it is on: half a point on the
// second screen, which the shelf's placement on screen is too coarse to show.
TEST(ScreenCoordinates, APixelIsTheBottomLeftCornerOfItsSquareOnTheScreenItIsOn) {
    for (const auto& [native, expected] : std::vector<std::pair<QPoint, Point>>{
             {{0, 0}, {0, 1079}},
             {{1920, 200}, {1920, 879.5}}, // the second screen's top row, in half points
             {{1920, 500}, {1920, 729.5}}, // its left column, not the primary's right edge
             {{1920 + 2559, 200 + 1439}, {1920 + 1279.5, 160}},
             {{1920, 100}, {1920, 979}}, // on no screen: as on the first
         })
        EXPECT_EQ(corePixel(native, screens, primary), expected) << native.x() << "," << native.y();
}

} // namespace
} // namespace tidewell
