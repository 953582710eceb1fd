#pragma once

namespace tidewell {

// A point of a drawn outline, in the view's drawing coordinates (y grows downwards).
struct PathPoint {
    double x = 0;
    double y = 0;

    bool operator==(const PathPoint&) const = default;
};

// One drawing operation of an outline, in the order a path painter replays them.
struct PathElement {
    enum class Kind { moveTo, lineTo, quadTo, close };

    Kind kind = Kind::close;
    PathPoint point;   // end point; unused by close
    PathPoint control; // quadTo only

    bool operator==(const PathElement&) const = default;
};

} // namespace tidewell
