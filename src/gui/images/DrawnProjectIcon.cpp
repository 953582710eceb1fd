#include "gui/images/DrawnProjectIcon.h"

#include "gui/images/ProjectIconPainter.h"
#include "gui/images/SoftShadow.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QtQml>
#include <algorithm>

namespace tidewell {

namespace {

// The shadow below the square, and how far beyond the square it reaches.
constexpr qreal shadowBlur = 5;
constexpr qreal shadowDrop = 2;
constexpr qreal shadowMargin = 7; // the blur and the drop, rounded up

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
    {
        QPainter painter(&image);
        paintProjectIconFace(painter, QRectF(QPointF(), size()), radius(),
                             {.tint = tint_, .initials = initials_, .hasEdge = hasEdge_});
    }
    // A picture keeps the engine that painted it for as long as it lives; the copy the
    // texture keeps has none.
    return image.copy();
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
