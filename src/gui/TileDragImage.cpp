#include "gui/TileDragImage.h"

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace tidewell {

namespace {

constexpr int iconSize = 48;
constexpr int margin = 6;

QPixmap transparentPixmap(QSizeF points, qreal devicePixelRatio) {
    QPixmap pixmap((points * devicePixelRatio).toSize());
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

} // namespace

QPixmap tileDragImage(const QImage& icon, qreal devicePixelRatio) {
    constexpr int side = iconSize + 2 * margin;
    QPixmap image = transparentPixmap(QSizeF(side, side), devicePixelRatio);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(margin, margin, iconSize, iconSize), icon);
    return image;
}

QPixmap tileDragCursor(bool isNearShelf, qreal devicePixelRatio) {
    QSvgRenderer svg(isNearShelf ? QStringLiteral(":/cursors/arrow.svg")
                                 : QStringLiteral(":/cursors/disappearing-item.svg"));
    QPixmap cursor = transparentPixmap(svg.defaultSize(), devicePixelRatio);
    QPainter painter(&cursor);
    svg.render(&painter, QRectF(QPointF(), svg.defaultSize()));
    return cursor;
}

} // namespace tidewell
