#pragma once

#include <QColor>
#include <QHash>
#include <QImage>
#include <QPainterPath>
#include <QPointF>
#include <QQuickItem>
#include <QVariantList>
#include <functional>
#include <mutex>

namespace tidewell {

// The blurred shadow of a rounded rectangle or of an outline, drawn by the processor so that
// it looks the same on every scene-graph backend. It covers its shape's area grown by
// `margin` on each side, where the blur and the offset reach; QML places it so. Shadows alike
// (every tile's) share one picture, and each is kept once, as the texture that draws it.
class SoftShadow : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY shapeChanged)
    Q_PROPERTY(qreal blur MEMBER blur_ NOTIFY shapeChanged)
    Q_PROPERTY(QPointF offset MEMBER offset_ NOTIFY shapeChanged)
    Q_PROPERTY(qreal cornerRadius MEMBER cornerRadius_ NOTIFY shapeChanged)
    // The outline's steps as the shelf's outline path gives them: a start, then curves and
    // lines in turn. Without steps the shape is the rounded rectangle.
    Q_PROPERTY(QVariantList steps MEMBER steps_ NOTIFY shapeChanged)
    Q_PROPERTY(qreal margin READ margin NOTIFY shapeChanged)

public:
    explicit SoftShadow(QQuickItem* parent = nullptr);
    qreal margin() const;

protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData*) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

signals:
    void shapeChanged();

private:
    QImage picture(QSize pixels, qreal scale) const;
    QString key(QSize pixels, qreal scale) const;

    QColor color_;
    qreal blur_ = 0;
    QPointF offset_;
    qreal cornerRadius_ = 0;
    QVariantList steps_;
    bool isDirty_ = true;
};

// Registers the item for QML once per process.
void registerSoftShadow();

// A shape's blurred shadow in a picture of `pixels`: the shape, in points, placed at `origin`
// and drawn at `scale` pixels a point, in `color`, blurred by `blur` points.
struct ShadowShape {
    QPainterPath shape;
    QSize pixels;
    qreal scale = 1;
    QPointF origin;
    QColor color;
    qreal blur = 0;
};
QImage shadowPicture(const ShadowShape& shadow);

// The shadow pictures textures draw now, by their shadow's key. A texture on the processor
// keeps the picture it was made from rather than a copy, so alike shadows draw one picture;
// one that only this table holds any more is dropped once a texture has replaced its own.
class SharedShadowPictures {
public:
    static QImage find(const QString& key, const std::function<QImage()>& make);
    static void dropUnused();

private:
    static inline std::mutex mutex_;
    static inline QHash<QString, QImage> pictures_;
};

} // namespace tidewell
