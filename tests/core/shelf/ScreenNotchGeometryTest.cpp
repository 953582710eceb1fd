#include "core/shelf/ScreenNotchGeometry.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace tidewell::testing {
namespace {

// The top strip of a 1512-point wide display, 32 points high.
Rect leftOfNotch(double maxX) {
    return {{0, 950}, {maxX, 32}};
}
Rect rightOfNotch(double minX) {
    return {{minX, 950}, {1512 - minX, 32}};
}

TEST(ScreenNotchGeometry, GapBetweenTheAreasInWholePointsOrTheFallback) {
    struct Case {
        std::string name;
        Rect left;
        Rect right;
        double expected;
    };
    const double infinity = std::numeric_limits<double>::infinity();
    const std::vector<Case> cases = {
        {"no notch", {}, {}, 180},
        {"left area missing", {}, rightOfNotch(851), 180},
        {"right area missing", leftOfNotch(661), {}, 180},
        {"zero-height area", {{0, 950}, {661, 0}}, rightOfNotch(851), 180},
        {"typical notch", leftOfNotch(661), rightOfNotch(851), 190},
        {"119.4 rounds below the minimum", leftOfNotch(600), rightOfNotch(719.4), 180},
        {"119.5 rounds half up to the minimum", leftOfNotch(600), rightOfNotch(719.5), 120},
        {"420.4 rounds to the maximum", leftOfNotch(500), rightOfNotch(920.4), 420},
        {"421 is too wide", leftOfNotch(500), rightOfNotch(921), 180},
        {"overlapping areas", leftOfNotch(900), rightOfNotch(700), 180},
        {"infinite edge", {{0, 950}, {infinity, 32}}, rightOfNotch(851), 180},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ScreenNotchGeometry::inferredNotchWidth(c.left, c.right, 180), c.expected)
            << c.name;
}

} // namespace
} // namespace tidewell::testing
