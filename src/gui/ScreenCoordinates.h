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

// The X server reports device pixels of the root window. Qt keeps each screen's origin as
// it is and scales the rest of the screen by its ratio. A pixel on no screen is taken as on
// the first one.
QPointF logicalFromNative(QPointF native, const std::vector<ScreenScale>& screens);

} // namespace tidewell
