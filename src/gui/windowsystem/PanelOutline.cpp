#include "gui/windowsystem/PanelOutline.h"

#include "core/shelf/NotchMergeShape.h"

#include <QPolygon>
#include <QTransform>

namespace tidewell {

QPainterPath outlinePath(const QRectF& rect, qreal topRadius, qreal bottomRadius) {
    const NotchMergeShape shape{topRadius, bottomRadius};
    QPainterPath path;
    for (const PathElement& element : shape.path(rect.x(), rect.y(), rect.width(), rect.height())) {
        const QPointF point(element.point.x, element.point.y);
        switch (element.kind) {
        case PathElement::Kind::moveTo:
            path.moveTo(point);
            break;
        case PathElement::Kind::lineTo:
            path.lineTo(point);
            break;
        case PathElement::Kind::quadTo:
            path.quadTo(QPointF(element.control.x, element.control.y), point);
            break;
        case PathElement::Kind::close:
            path.closeSubpath();
            break;
        }
    }
    return path;
}

QRegion regionOf(const QPainterPath& path, qreal scale) {
    const QPolygonF polygon = QTransform::fromScale(scale, scale).map(path).toFillPolygon();
    return QRegion(polygon.toPolygon(), Qt::WindingFill);
}

} // namespace tidewell
