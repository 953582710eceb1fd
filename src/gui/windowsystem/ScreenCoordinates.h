#pragma once

#include "core/platform/Geometry.h"

#include <QPointF>
#include <QRect>
#include <QRectF>
#include <vector>

namespace tidewell {

// Qt places screens in logical pixels with the origin at the top-left of the virtual desktop
// and y growing downwards; the shelf's logic works in points from the bottom-left of the
// primary display with y growing upwards. These convert between the two, given the primary
// screen's geometry.
Point corePoint(QPointF point, const QRect& primaryGeometry);
QPointF qtPoint(Point point, const QRect& primaryGeometry);
Rect coreRect(const QRectF& rect, const QRect& primaryGeometry);
QRectF qtRect(const Rect& rect, const QRect& primaryGeometry);

// A screen as Qt places it: its geometry in logical pixels and its device-pixel ratio.
struct ScreenScale {
    QRect geometry;
    qreal devicePixelRatio = 1;
};

// The X server reports the pointer as a device pixel of the root window. Qt keeps each
// screen's origin as it is and scales the rest of the screen by its ratio; a pixel on no
// screen is taken as on the first one. The pixel stands for the square it covers, placed by
// its bottom-left corner in the shelf's points: the corner that rectangles holding their
// minimum edges but not their maximum ones hold exactly when they cover the pixel. So the
// top row of a display is inside it, not on its excluded top edge.
Point corePixel(QPoint native, const std::vector<ScreenScale>& screens,
                const QRect& primaryGeometry);

} // namespace tidewell
