#pragma once

#include "core/platform/Geometry.h"

namespace tidewell::ScreenNotchGeometry {

// The camera housing's width: the gap between the top strip's areas left and right of it,
// in whole points. `fallback` when either area is missing or the gap is implausible.
double inferredNotchWidth(const Rect& leftArea, const Rect& rightArea, double fallback);

} // namespace tidewell::ScreenNotchGeometry
