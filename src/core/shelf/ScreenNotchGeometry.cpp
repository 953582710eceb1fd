#include "core/shelf/ScreenNotchGeometry.h"

#include <cmath>

namespace tidewell::ScreenNotchGeometry {

namespace {
constexpr double minimumNotchWidth = 120;
constexpr double maximumNotchWidth = 420;
} // namespace

double inferredNotchWidth(const Rect& leftArea, const Rect& rightArea, double fallback) {
    if (leftArea.isEmpty() || rightArea.isEmpty())
        return fallback;
    if (!std::isfinite(leftArea.maxX()) || !std::isfinite(rightArea.minX()))
        return fallback;
    const double width = std::round(rightArea.minX() - leftArea.maxX());
    if (width < minimumNotchWidth || width > maximumNotchWidth)
        return fallback;
    return width;
}

} // namespace tidewell::ScreenNotchGeometry
