#include "gui/shelf/TileDragImage.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QSvgRenderer>
#include <algorithm>

namespace tidewell {

namespace {

constexpr qreal iconSize = 48;
constexpr qreal margin = 6;
// As the icon view draws itself: corner radius, the initials' size and how far they shrink,
// their padding, the inner border, the shadow's opacity, blur and drop.
constexpr qreal cornerRadius = iconSize * 0.24;
constexpr qreal initialsSize = iconSize * 0.33;
constexpr qreal initialsMinimumScale = 0.65;
constexpr qreal initialsPadding = 5;
constexpr qreal borderWidth = 0.5;
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

// The initials in one line, shrunk as far as allowed to fit between the paddings.
void drawInitials(QPainter& painter, const QRectF& square, const QString& initials) {
    const QRectF room =
        square.adjusted(initialsPadding, initialsPadding, -initialsPadding, -initialsPadding);
    QFont font;
    font.setWeight(QFont::DemiBold);
    font.setPixelSize(1000); // measured large, then scaled to the size that fits
    const qreal widthAtSize = QFontMetricsF(font).horizontalAdvance(initials) * initialsSize / 1000;
    const qreal scale = widthAtSize > room.width()
                            ? std::max(initialsMinimumScale, room.width() / widthAtSize)
                            : 1.0;
    font.setPixelSize(std::max(1, qRound(initialsSize * scale)));
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(room, Qt::AlignCenter | Qt::TextSingleLine, initials);
}

// The image fills the square, its aspect kept, its overflow cut off.
void drawImage(QPainter& painter, const QRectF& square, const QImage& image) {
    QSizeF source = image.size();
    source.scale(square.size(), Qt::KeepAspectRatioByExpanding);
    QRectF target(QPointF(), source);
    target.moveCenter(square.center());
    painter.drawImage(target, image);
}

} // namespace

QPixmap tileDragImage(const ProjectIconFace& face, qreal devicePixelRatio) {
    constexpr qreal side = iconSize + 2 * margin;
    QPixmap image = transparentPixmap(QSizeF(side, side), devicePixelRatio);
    const QRectF square(margin, margin, iconSize, iconSize);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform |
                           QPainter::TextAntialiasing);
    drawShadow(painter, square);
    const QPainterPath shape = roundedSquare(square);
    painter.fillPath(shape, face.tint);
    painter.save();
    painter.setClipPath(shape);
    if (face.image.isNull())
        drawInitials(painter, square, face.initials);
    else
        drawImage(painter, square, face.image);
    painter.restore();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor::fromRgbF(1, 1, 1, 0.18), borderWidth));
    const qreal inset = borderWidth / 2;
    painter.drawPath(roundedSquare(square.adjusted(inset, inset, -inset, -inset)));
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
