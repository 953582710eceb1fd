#include "core/shelf/RoundedHitShape.h"

#include <algorithm>

namespace tidewell::RoundedHitShape {

bool contains(Size size, double radius, Point point) {
    // How far the point lies beyond the inner rectangle whose corners are the arcs' centres:
    // a point outside the whole rectangle lies farther than the radius too.
    const double dx = std::max({radius - point.x, point.x - (size.width - radius), 0.0});
    const double dy = std::max({radius - point.y, point.y - (size.height - radius), 0.0});
    return dx * dx + dy * dy <= radius * radius;
}

} // namespace tidewell::RoundedHitShape
