#pragma once

#include <chrono>

namespace tidewell {

// A timed animation as a cubic Bézier timing curve from (0, 0) to (1, 1) through the inner
// control points (x1, y1) and (x2, y2). The named ease curves carry their standard control
// points too, so a view can play every animation with one Bézier easing.
struct Animation {
    enum class Curve { bezier, easeOut, easeIn };

    Curve curve = Curve::bezier;
    double x1 = 0;
    double y1 = 0;
    double x2 = 1;
    double y2 = 1;
    std::chrono::milliseconds duration{0};

    bool operator==(const Animation&) const = default;
};

// How far the animated value has come (0 to 1) after the given fraction of the duration
// (clamped to 0 ... 1).
double progress(const Animation& animation, double timeFraction);

} // namespace tidewell
