#pragma once

#include "core/shelf/PathElement.h"

#include <vector>

namespace tidewell {

// The outline that makes the shelf look like a continuation of the notch: the top edge spans
// the full width, each upper corner flares outwards into the screen edge, and the body below
// is rounded at its lower corners. Filled with the non-zero winding rule.
struct NotchMergeShape {
    double topCornerRadius = 0;
    double bottomCornerRadius = 0;

    // The outline of the rectangle at (minX, minY) with y growing downwards, so minY is the top
    // edge. The radii are taken as they are, even when they exceed the rectangle.
    std::vector<PathElement> path(double minX, double minY, double width, double height) const;

    // Both radii move together, so an animation of the pair morphs the corners linearly.
    static NotchMergeShape interpolated(const NotchMergeShape& from, const NotchMergeShape& to,
                                        double fraction);

    bool operator==(const NotchMergeShape&) const = default;
};

} // namespace tidewell
