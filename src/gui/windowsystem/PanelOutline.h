#pragma once

#include <QPainterPath>
#include <QRectF>
#include <QRegion>

namespace tidewell {

// The shelf's outline as a path, in the panel view's logical pixels.
QPainterPath outlinePath(const QRectF& rect, qreal topRadius, qreal bottomRadius);
// The pixels the path covers at the given device-pixel ratio: where the panel takes the
// pointer.
QRegion regionOf(const QPainterPath& path, qreal scale);

} // namespace tidewell
