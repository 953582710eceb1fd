#include "core/shelf/MergedBackground.h"
#include "core/shelf/NotchTransition.h"
#include "core/shelf/RoundedHitShape.h"
#include "core/shelf/ScreenNotchGeometry.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

// The shapes and sizes the shelf is drawn with, and how its animations run.
namespace tidewell::testing {

TEST(ScreenNotchGeometry, GapBetweenTheAreasInWholePointsOrTheFallback) {
    // The top strip of a 1512-point wide display, 32 points high, left and right of the gap.
    const auto left = [](double maxX) { return Rect{{0, 950}, {maxX, 32}}; };
    const auto right = [](double minX) { return Rect{{minX, 950}, {1512 - minX, 32}}; };
    const double infinity = std::numeric_limits<double>::infinity();
    const std::tuple<Rect, Rect, double> cases[] = {
        {{{0, 950}, {661, 0}}, right(851), 180}, // an empty area is no notch edge
        {left(661), {{851, 950}, {0, 32}}, 180},
        {left(661), right(851), 190},
        {left(600), right(719.4), 180}, // 119.4 rounds below the minimum
        {left(600), right(719.5), 120},
        {left(500), right(920.4), 420},
        {left(500), right(921), 180},
        {left(900), right(700), 180},
        {{{0, 950}, {infinity, 32}}, right(851), 180},
        {{{0, 950}, {std::nan(""), 32}}, right(851), 180},
    };
    for (const auto& [left, right, expected] : cases)
        EXPECT_EQ(ScreenNotchGeometry::inferredNotchWidth(left, right, 180), expected)
            << left.maxX() << " " << right.minX();
}

// A tile is 60 by 63 points with corners of 12: the cut-off corners and what lies outside miss.
TEST(RoundedHitShape, CornersAndOutsideMiss) {
    const std::tuple<Point, bool> cases[] = {
        {{30, 31}, true},    {{0, 31}, true},     {{60, 31}, true},    {{60, 63}, false},
        {{3.5, 3.5}, false}, {{57, 60}, false},   {{3.6, 3.6}, true},  {{12, 0}, true},
        {{-0.1, 31}, false}, {{60.1, 31}, false}, {{30, 63.1}, false},
    };
    for (const auto& [point, hits] : cases)
        EXPECT_EQ(RoundedHitShape::contains({60, 63}, 12, point), hits)
            << point.x << " " << point.y;
    EXPECT_TRUE(RoundedHitShape::contains({60, 63}, 0, {0, 0})); // a square keeps its corners
}

TEST(MergedBackground, ExpansionChoosesSizeAndLowerRadiusAppearanceChoosesFill) {
    using Fill = MergedBackground::Fill;
    constexpr Size panel{420, 96};
    constexpr Size notch{180, 32};
    const ShelfAppearance black = ShelfAppearance::notchBlack;
    EXPECT_EQ(MergedBackground::decide(true, panel, notch, black),
              (MergedBackground{{8, 18}, panel, Fill::solidBlack, std::nullopt}));
    EXPECT_EQ(MergedBackground::decide(false, panel, notch, ShelfAppearance::warmGlass),
              (MergedBackground{{8, 8}, notch, Fill::translucentGlass, {{0.22, 12, 0, 3}}}));
    // Negative sizes become zero, per dimension.
    EXPECT_EQ(MergedBackground::decide(true, {-5, 40}, notch, black).size, (Size{0, 40}));
    EXPECT_EQ(MergedBackground::decide(false, panel, {2, -3}, black).size, (Size{2, 0}));
}

TEST(NotchTransition, ProgressRunsMonotonicallyFromZeroToOneInTheShapeOfEachCurve) {
    for (const Animation* animation :
         {&NotchTransition::expand, &NotchTransition::collapse, &NotchTransition::contentFadeIn,
          &NotchTransition::contentFadeOut, &NotchTransition::resize}) {
        EXPECT_NEAR(progress(*animation, -0.5), 0, 1e-9);
        EXPECT_NEAR(progress(*animation, 1.5), 1, 1e-9);
        double previous = 0;
        for (int step = 1; step <= 200; ++step) {
            const double current = progress(*animation, step / 200.0);
            EXPECT_GE(current, previous) << "step " << step;
            previous = current;
        }
        EXPECT_NEAR(previous, 1, 1e-9);
    }
    // Expanding rushes out and settles; collapsing starts slowly and snaps in.
    EXPECT_GT(progress(NotchTransition::expand, 0.5), 0.85);
    EXPECT_LT(progress(NotchTransition::collapse, 0.5), 0.5);
    EXPECT_NEAR(progress(NotchTransition::contentFadeOut, 0.5), 0.3153, 1e-3);
    EXPECT_NEAR(progress(NotchTransition::contentFadeIn, 0.5), 0.6847, 1e-3);
    // Control points on the diagonal make time and progress equal.
    const Animation linear{Animation::Curve::bezier, 1.0 / 3, 1.0 / 3, 2.0 / 3, 2.0 / 3, {}};
    for (double time : {0.1, 0.37, 0.93})
        EXPECT_NEAR(progress(linear, time), time, 1e-6) << time;
}

} // namespace tidewell::testing
