#include "core/shelf/NotchMergeShape.h"

namespace tidewell {

namespace {

PathElement moveTo(double x, double y) {
    return {PathElement::Kind::moveTo, {x, y}, {}};
}

PathElement lineTo(double x, double y) {
    return {PathElement::Kind::lineTo, {x, y}, {}};
}

PathElement quadTo(double x, double y, double controlX, double controlY) {
    return {PathElement::Kind::quadTo, {x, y}, {controlX, controlY}};
}

double lerp(double from, double to, double fraction) {
    return from + (to - from) * fraction;
}

} // namespace

std::vector<PathElement> NotchMergeShape::path(double minX, double minY, double width,
                                               double height) const {
    const double t = topCornerRadius;
    const double b = bottomCornerRadius;
    const double maxX = minX + width;
    const double maxY = minY + height;
    return {
        moveTo(minX, minY),
        quadTo(minX + t, minY + t, minX + t, minY), // left flare
        lineTo(minX + t, maxY - b),
        quadTo(minX + t + b, maxY, minX + t, maxY), // lower-left corner
        lineTo(maxX - t - b, maxY),
        quadTo(maxX - t, maxY - b, maxX - t, maxY), // lower-right corner
        lineTo(maxX - t, minY + t),
        quadTo(maxX, minY, maxX - t, minY), // right flare
        {PathElement::Kind::close, {}, {}},
    };
}

NotchMergeShape NotchMergeShape::interpolated(const NotchMergeShape& from,
                                              const NotchMergeShape& to, double fraction) {
    return {lerp(from.topCornerRadius, to.topCornerRadius, fraction),
            lerp(from.bottomCornerRadius, to.bottomCornerRadius, fraction)};
}

} // namespace tidewell
