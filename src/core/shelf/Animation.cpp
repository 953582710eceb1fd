#include "core/shelf/Animation.h"

#include <algorithm>
#include <cmath>

namespace tidewell {

namespace {

// One coordinate of the cubic Bézier from 0 to 1 with inner control values p1 and p2.
double bezier(double p1, double p2, double t) {
    const double u = 1 - t;
    return 3 * u * u * t * p1 + 3 * u * t * t * p2 + t * t * t;
}

double bezierSlope(double p1, double p2, double t) {
    const double u = 1 - t;
    return 3 * u * u * p1 + 6 * u * t * (p2 - p1) + 3 * t * t * (1 - p2);
}

// The curve parameter at which x reaches the given time. x grows monotonically because both
// inner x values lie in 0 ... 1; Newton converges in a few steps where the slope is usable and
// bisection takes over where it is not.
double parameterForTime(const Animation& animation, double time) {
    constexpr double tolerance = 1e-7;
    double t = time;
    for (int step = 0; step < 8; ++step) {
        const double error = bezier(animation.x1, animation.x2, t) - time;
        if (std::abs(error) < tolerance && t >= 0 && t <= 1) {
            return t;
        }
        const double slope = bezierSlope(animation.x1, animation.x2, t);
        if (std::abs(slope) < 1e-6) {
            break;
        }
        t -= error / slope;
    }
    double low = 0;
    double high = 1;
    t = time;
    while (high - low > tolerance) {
        if (bezier(animation.x1, animation.x2, t) < time) {
            low = t;
        } else {
            high = t;
        }
        t = (low + high) / 2;
    }
    return t;
}

} // namespace

double progress(const Animation& animation, double timeFraction) {
    const double time = std::clamp(timeFraction, 0.0, 1.0);
    return bezier(animation.y1, animation.y2, parameterForTime(animation, time));
}

} // namespace tidewell
