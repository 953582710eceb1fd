#include "gui/images/DrawnProjectIcon.h"

#include "gui/images/SoftShadow.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QTextLayout>
#include <QtQml>
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
// The shadow below the square, and how far beyond the square it reaches.
constexpr qreal shadowBlur = 5;
constexpr qreal shadowDrop = 2;
constexpr qreal shadowMargin = 7; // the blur and the drop, rounded up

QFont initialsFont(qreal pixels) {
    QFont font;
    font.setWeight(QFont::DemiBold);
    font.setPointSizeF(pixels * pointsPerPixel);
    return font;
}

} // namespace

DrawnProjectIcon::DrawnProjectIcon(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    connect(this, &DrawnProjectIcon::faceChanged, this, [this] {
        isDirty_ = true;
        update();
    });
}

void DrawnProjectIcon::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size()) {
        isDirty_ = true;
        update();
    }
}

qreal DrawnProjectIcon::radius() const {
    return std::min(width(), height()) * cornerShare_;
}

// Alike icons share one shadow picture.
QImage DrawnProjectIcon::shadow(qreal scale) const {
    const QSizeF shadowSize = size() + QSizeF(2 * shadowMargin, 2 * shadowMargin);
    const QString key =
        QStringLiteral("icon %1 %2 %3 %4").arg(width()).arg(height()).arg(scale).arg(radius());
    return SharedShadowPictures::find(key, [&] {
        QPainterPath square;
        square.addRoundedRect(QRectF(QPointF(), size()), radius(), radius());
        return shadowPicture({.shape = square,
                              .pixels = (shadowSize * scale).toSize(),
                              .scale = scale,
                              .origin = QPointF(shadowMargin, shadowMargin + shadowDrop),
                              .color = QColor::fromRgbF(0, 0, 0, 0.18f),
                              .blur = shadowBlur});
    });
}

QImage DrawnProjectIcon::face(qreal scale) const {
    QImage image((size() * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    paint(image);
    // A picture keeps the engine that painted it for as long as it lives; the copy the
    // texture keeps has none.
    return image.copy();
}

// Laid out as a line of text is in the views, centred between the paddings at fractional
// positions, so that the initials sit where a text item would put them.
void DrawnProjectIcon::paintInitials(QPainter& painter, const QRectF& square) const {
    const qreal fullSize = std::min(square.width(), square.height()) * initialsShare;
    const QRectF room =
        square.adjusted(initialsPadding, initialsPadding, -initialsPadding, -initialsPadding);
    const qreal natural = QFontMetricsF(initialsFont(fullSize)).horizontalAdvance(initials_);
    const qreal fit = natural > 0 ? room.width() / natural : 1;
    QTextLayout layout(initials_, initialsFont(fullSize * std::clamp(fit, smallestInitials, 1.0)));
    layout.setTextOption(QTextOption(Qt::AlignHCenter));
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(room.width());
    layout.endLayout();
    painter.setPen(Qt::white);
    layout.draw(&painter, {room.left(), room.top() + (room.height() - line.height()) / 2});
}

void DrawnProjectIcon::paint(QImage& image) const {
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const QRectF square(QPointF(), size());
    const qreal radius = this->radius();
    painter.setPen(Qt::NoPen);
    painter.setBrush(tint_);
    painter.drawRoundedRect(square, radius, radius);
    if (!initials_.isEmpty())
        paintInitials(painter, square);
    if (hasEdge_) {
        const qreal inset = edgeWidth / 2;
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor::fromRgbF(1, 1, 1, 0.18f), edgeWidth));
        painter.drawRoundedRect(square.adjusted(inset, inset, -inset, -inset), radius - inset,
                                radius - inset);
    }
}

QSGImageNode* DrawnProjectIcon::imageNode() const {
    QSGImageNode* image = window()->createImageNode();
    image->setOwnsTexture(true);
    image->setFiltering(QSGTexture::Linear);
    return image;
}

// The shadow's node, then the face's.
QSGNode* DrawnProjectIcon::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
    const qreal scale = window()->effectiveDevicePixelRatio();
    if ((size() * scale).toSize().isEmpty()) {
        delete node;
        isDirty_ = true;
        return nullptr;
    }
    if (!node) {
        node = new QSGNode;
        node->appendChildNode(imageNode());
        node->appendChildNode(imageNode());
        isDirty_ = true;
    }
    auto* shadowNode = static_cast<QSGImageNode*>(node->firstChild());
    auto* faceNode = static_cast<QSGImageNode*>(node->lastChild());
    if (isDirty_) {
        shadowNode->setTexture(window()->createTextureFromImage(shadow(scale)));
        SharedShadowPictures::dropUnused();
        faceNode->setTexture(window()->createTextureFromImage(face(scale)));
        isDirty_ = false;
    }
    shadowNode->setRect(
        boundingRect().adjusted(-shadowMargin, -shadowMargin, shadowMargin, shadowMargin));
    faceNode->setRect(boundingRect());
    return node;
}

void registerDrawnProjectIcon() {
    static const bool registered = [] {
        qmlRegisterType<DrawnProjectIcon>("Tidewell", 1, 0, "DrawnProjectIcon");
        return true;
    }();
    Q_UNUSED(registered);
}

} // namespace tidewell
