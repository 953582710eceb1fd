#pragma once

#include "gui/images/ProjectIconPainter.h"

#include <QColor>
#include <QQuickItem>
#include <QString>

class QSGImageNode;

namespace tidewell {

// A project's icon without its picture: the rounded square in its tint with its soft shadow
// below it, the initials on it and the thin light edge around it, drawn once by the
// processor: one item, the face's one picture and a shadow picture alike icons share, in
// place of a shadow, two rectangles and a text with their nodes, bindings and layouts.
class DrawnProjectIcon : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(QColor tint MEMBER tint_ NOTIFY faceChanged)
    // Empty while a picture covers the face.
    Q_PROPERTY(QString initials MEMBER initials_ NOTIFY faceChanged)
    // The corner radius as a share of the side.
    Q_PROPERTY(qreal cornerShare MEMBER cornerShare_ NOTIFY faceChanged)
    // The edge is drawn over the picture instead while one shows.
    Q_PROPERTY(bool hasEdge MEMBER hasEdge_ NOTIFY faceChanged)

public:
    explicit DrawnProjectIcon(QQuickItem* parent = nullptr);

protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData*) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

signals:
    void faceChanged();

private:
    qreal radius() const;
    QImage shadow(qreal scale) const;
    QImage face(qreal scale) const;
    QSGImageNode* imageNode() const;

    QColor tint_;
    QString initials_;
    qreal cornerShare_ = iconCornerShare;
    bool hasEdge_ = true;
    bool isDirty_ = true;
};

// Registers the item for QML once per process.
void registerDrawnProjectIcon();

} // namespace tidewell
