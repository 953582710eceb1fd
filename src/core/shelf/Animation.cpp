#include "core/shelf/Animation.h"

#include <algorithm>

namespace tidewell {

namespace {

// One coordinate of the cubic Bézier from 0 to 1 with inner control values p1 and p2.
double bezier(double p1, double p2, double t) {
    const double u = 1 - t;
    return 3 * u * u * t * p1 + 3 * u * t * t * p2 + t * t * t;
}

// The curve parameter at which x reaches the given time, by bisection: x grows monotonically
// because both inner x values lie in 0 ... 1.
double parameterForTime(const Animation& animation, double time) {
    constexpr double tolerance = 1e-7;
    double low = 0;
    double high = 1;
    double t = time;
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
