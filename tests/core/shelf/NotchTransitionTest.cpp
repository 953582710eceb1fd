#include "core/shelf/NotchTransition.h"

#include <gtest/gtest.h>

namespace tidewell::testing {
namespace {

using Curve = Animation::Curve;
using std::chrono::milliseconds;

TEST(NotchTransition, FiveAnimationsWithTheirCurvesAndDurations) {
    struct Case {
        const char* name;
        const Animation& animation;
        Animation expected;
    };
    const Case cases[] = {
        {"expand",
         NotchTransition::expand,
         {Curve::bezier, 0.32, 0.72, 0.0, 1.0, milliseconds(300)}},
        {"collapse",
         NotchTransition::collapse,
         {Curve::bezier, 0.4, 0.0, 1.0, 1.0, milliseconds(200)}},
        {"contentFadeIn",
         NotchTransition::contentFadeIn,
         {Curve::easeOut, 0.0, 0.0, 0.58, 1.0, milliseconds(180)}},
        {"contentFadeOut",
         NotchTransition::contentFadeOut,
         {Curve::easeIn, 0.42, 0.0, 1.0, 1.0, milliseconds(100)}},
        {"resize",
         NotchTransition::resize,
         {Curve::bezier, 0.32, 0.72, 0.0, 1.0, milliseconds(220)}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.animation, c.expected) << c.name;
    }
}

TEST(NotchTransition, ProgressRunsMonotonicallyFromZeroToOne) {
    const Animation* animations[] = {&NotchTransition::expand, &NotchTransition::collapse,
                                     &NotchTransition::contentFadeIn,
                                     &NotchTransition::contentFadeOut, &NotchTransition::resize};
    for (const Animation* animation : animations) {
        EXPECT_NEAR(progress(*animation, 0), 0, 1e-9);
        EXPECT_NEAR(progress(*animation, 1), 1, 1e-9);
        EXPECT_NEAR(progress(*animation, -0.5), 0, 1e-9);
        EXPECT_NEAR(progress(*animation, 1.5), 1, 1e-9);
        double previous = 0;
        for (int step = 1; step <= 200; ++step) {
            const double current = progress(*animation, step / 200.0);
            EXPECT_GE(current, previous) << "step " << step;
            previous = current;
        }
    }
}

TEST(NotchTransition, ProgressFollowsTheShapeOfEachCurve) {
    // Expanding rushes out and settles; collapsing starts slowly and snaps in.
    EXPECT_GT(progress(NotchTransition::expand, 0.5), 0.85);
    EXPECT_LT(progress(NotchTransition::collapse, 0.5), 0.5);
    EXPECT_GT(progress(NotchTransition::contentFadeIn, 0.5), 0.5);
    EXPECT_LT(progress(NotchTransition::contentFadeOut, 0.5), 0.5);
    // Reference values of the standard ease curves.
    EXPECT_NEAR(progress(NotchTransition::contentFadeOut, 0.5), 0.3153, 1e-3);
    EXPECT_NEAR(progress(NotchTransition::contentFadeIn, 0.5), 0.6847, 1e-3);
    // Control points on the diagonal make time and progress equal.
    const Animation linear{Curve::bezier, 1.0 / 3, 1.0 / 3, 2.0 / 3, 2.0 / 3, milliseconds(100)};
    for (double time : {0.1, 0.37, 0.5, 0.93}) {
        EXPECT_NEAR(progress(linear, time), time, 1e-6) << time;
    }
}

} // namespace
} // namespace tidewell::testing
