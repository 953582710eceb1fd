#include "gui/windowsystem/ScreenCoordinates.h"

#include <algorithm>

namespace tidewell {
namespace {

bool holds(const ScreenScale& screen, QPoint native) {
    const QRectF pixels(screen.geometry.topLeft(),
                        QSizeF(screen.geometry.size()) * screen.devicePixelRatio);
    return native.x() >= pixels.left() && native.x() < pixels.right() &&
           native.y() >= pixels.top() && native.y() < pixels.bottom();
}

} // namespace

Point corePoint(QPointF point, const QRect& primaryGeometry) {
    const QRectF primary(primaryGeometry);
    return {point.x() - primary.left(), primary.bottom() - point.y()};
}

QPointF qtPoint(Point point, const QRect& primaryGeometry) {
    const QRectF primary(primaryGeometry);
    return {primary.left() + point.x, primary.bottom() - point.y};
}

Rect coreRect(const QRectF& rect, const QRect& primaryGeometry) {
    return {corePoint(rect.bottomLeft(), primaryGeometry), {rect.width(), rect.height()}};
}

QRectF qtRect(const Rect& rect, const QRect& primaryGeometry) {
    const QPointF topLeft = qtPoint({rect.minX(), rect.maxY()}, primaryGeometry);
    return {topLeft, QSizeF(rect.width(), rect.height())};
}

Point corePixel(QPoint native, const std::vector<ScreenScale>& screens,
                const QRect& primaryGeometry) {
    const auto holder =
        std::find_if(screens.begin(), screens.end(),
                     [&](const ScreenScale& screen) { return holds(screen, native); });
    const ScreenScale screen = holder != screens.end() ? *holder
                               : screens.empty()       ? ScreenScale{}
                                                       : screens.front();
    const QPointF origin = screen.geometry.topLeft();
    const QPointF topLeft = origin + (QPointF(native) - origin) / screen.devicePixelRatio;
    const qreal side = 1 / screen.devicePixelRatio;
    return coreRect(QRectF(topLeft, QSizeF(side, side)), primaryGeometry).origin;
}

} // namespace tidewell
