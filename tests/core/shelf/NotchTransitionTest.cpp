#include "core/shelf/NotchTransition.h"

#include <gtest/gtest.h>

namespace tidewell::testing {
namespace {

TEST(NotchTransition, ProgressRunsMonotonicallyFromZeroToOneInTheShapeOfEachCurve) {
    const Animation* animations[] = {&NotchTransition::expand, &NotchTransition::collapse,
                                     &NotchTransition::contentFadeIn,
                                     &NotchTransition::contentFadeOut, &NotchTransition::resize};
    for (const Animation* animation : animations) {
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
    // Reference values of the standard ease curves.
    EXPECT_NEAR(progress(NotchTransition::contentFadeOut, 0.5), 0.3153, 1e-3);
    EXPECT_NEAR(progress(NotchTransition::contentFadeIn, 0.5), 0.6847, 1e-3);
    // Control points on the diagonal make time and progress equal.
    const Animation linear{Animation::Curve::bezier,      1.0 / 3, 1.0 / 3, 2.0 / 3, 2.0 / 3,
                           std::chrono::milliseconds(100)};
    for (double time : {0.1, 0.37, 0.93})
        EXPECT_NEAR(progress(linear, time), time, 1e-6) << time;
}

} // namespace
} // namespace tidewell::testing
