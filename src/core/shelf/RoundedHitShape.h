#pragma once

#include "core/platform/Geometry.h"

namespace tidewell::RoundedHitShape {

// Whether a point, in the shape's own coordinates, falls on a rounded rectangle of this size
// and corner radius: points in the cut-off corners miss, as they miss what is drawn.
bool contains(Size size, double radius, Point point);

} // namespace tidewell::RoundedHitShape
