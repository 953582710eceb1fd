#include "gui/ScreenCoordinates.h"

#include <algorithm>

namespace tidewell {
namespace {

QRectF nativeGeometry(const ScreenScale& screen) {
    const QRectF geometry(screen.geometry);
    return {geometry.topLeft(), geometry.size() * screen.devicePixelRatio};
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

QPointF logicalFromNative(QPointF native, const std::vector<ScreenScale>& screens) {
    if (screens.empty())
        return native;
    const auto holder =
        std::find_if(screens.begin(), screens.end(), [&](const ScreenScale& screen) {
            return nativeGeometry(screen).contains(native);
        });
    const ScreenScale& screen = holder == screens.end() ? screens.front() : *holder;
    const QPointF origin = screen.geometry.topLeft();
    return origin + (native - origin) / screen.devicePixelRatio;
}

} // namespace tidewell
