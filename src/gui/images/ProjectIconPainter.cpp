#include "gui/images/ProjectIconPainter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QTextLayout>
#include <algorithm>

namespace tidewell {
namespace {

// The initials at a third of the side, shrunk to fit between the paddings down to 0.65 of
// that; what still does not fit is cut off at the edges. Sizes of type are in points, three
// quarters of a logical pixel, so that fractions are kept.
constexpr qreal initialsShare = 0.33;
constexpr qreal smallestInitials = 0.65;
constexpr qreal initialsPadding = 5;
constexpr qreal pointsPerPixel = 0.75;
constexpr qreal edgeWidth = 0.5;

QFont initialsFont(qreal pixels) {
    QFont font;
    font.setWeight(QFont::DemiBold);
    font.setPointSizeF(pixels * pointsPerPixel);
    return font;
}

// Laid out as a line of text is in the views, centred between the paddings at fractional
// positions, so that the initials sit where a text item would put them.
void paintInitials(QPainter& painter, const QRectF& square, const QString& initials) {
    const qreal fullSize = std::min(square.width(), square.height()) * initialsShare;
    const QRectF room =
        square.adjusted(initialsPadding, initialsPadding, -initialsPadding, -initialsPadding);
    const qreal natural = QFontMetricsF(initialsFont(fullSize)).horizontalAdvance(initials);
    const qreal fit = natural > 0 ? room.width() / natural : 1;
    QTextLayout layout(initials, initialsFont(fullSize * std::clamp(fit, smallestInitials, 1.0)));
    layout.setTextOption(QTextOption(Qt::AlignHCenter));
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(room.width());
    layout.endLayout();
    painter.setPen(Qt::white);
    layout.draw(&painter, {room.left(), room.top() + (room.height() - line.height()) / 2});
}

// The picture fills the square, its aspect kept, its overflow cut off by the corners.
void paintImage(QPainter& painter, const QRectF& square, qreal radius, const QImage& image) {
    QSizeF source = image.size();
    source.scale(square.size(), Qt::KeepAspectRatioByExpanding);
    QRectF target(QPointF(), source);
    target.moveCenter(square.center());
    QPainterPath shape;
    shape.addRoundedRect(square, radius, radius);
    painter.save();
    painter.setClipPath(shape);
    painter.drawImage(target, image);
    painter.restore();
}

} // namespace

void paintProjectIconFace(QPainter& painter, const QRectF& square, qreal radius,
                          const ProjectIconFace& face) {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);
    painter.setBrush(face.tint);
    painter.drawRoundedRect(square, radius, radius);
    if (!face.image.isNull())
        paintImage(painter, square, radius, face.image);
    else if (!face.initials.isEmpty())
        paintInitials(painter, square, face.initials);
    if (face.hasEdge) {
        const qreal inset = edgeWidth / 2;
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor::fromRgbF(1, 1, 1, 0.18f), edgeWidth));
        painter.drawRoundedRect(square.adjusted(inset, inset, -inset, -inset), radius - inset,
                                radius - inset);
    }
}

} // namespace tidewell
