#include "gui/shelf/TileDragImage.h"

#include "gui/images/ProjectIconPainter.h"

#include <QPainter>
#include <QPainterPath>
#include <QSvgRenderer>

namespace tidewell {

namespace {

constexpr qreal iconSize = 48;
constexpr qreal margin = 6;
constexpr qreal cornerRadius = iconSize * iconCornerShare;
// The shadow's opacity, blur and drop.
constexpr qreal shadowOpacity = 0.18;
constexpr int shadowBlur = 5;
constexpr qreal shadowDrop = 2;

QPixmap transparentPixmap(QSizeF points, qreal devicePixelRatio) {
    QPixmap pixmap((points * devicePixelRatio).toSize());
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

QPainterPath roundedSquare(const QRectF& square) {
    QPainterPath path;
    path.addRoundedRect(square, cornerRadius, cornerRadius);
    return path;
}

// A soft shadow: rings of the square, each a little larger and fainter.
void drawShadow(QPainter& painter, const QRectF& square) {
    painter.setPen(Qt::NoPen);
    for (int ring = shadowBlur; ring > 0; --ring) {
        const qreal grow = ring - 1;
        painter.setBrush(QColor::fromRgbF(0, 0, 0, shadowOpacity / shadowBlur));
        painter.drawPath(
            roundedSquare(square.translated(0, shadowDrop).adjusted(-grow, -grow, grow, grow)));
    }
}

} // namespace

QPixmap tileDragImage(const ProjectIconFace& face, qreal devicePixelRatio) {
    constexpr qreal side = iconSize + 2 * margin;
    QPixmap image = transparentPixmap(QSizeF(side, side), devicePixelRatio);
    const QRectF square(margin, margin, iconSize, iconSize);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing);
    drawShadow(painter, square);
    paintProjectIconFace(painter, square, cornerRadius, face);
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
