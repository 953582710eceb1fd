#pragma once

#include "gui/shelf/ShelfDrops.h"

#include <QPointer>
#include <QQuickItem>
#include <memory>

namespace tidewell {

class TileDragSource;

// Covers a tile and owns its left-button presses: a press released in place is a click; one
// that travels starts a drag of the tile, which reorders the shelf, or unpins the project
// when it ends far outside the shelf. Other buttons, hovering and the wheel reach the tile.
class TileDragView : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(ShelfDrops* drops MEMBER drops_ NOTIFY dropsChanged)
    Q_PROPERTY(QString itemId MEMBER itemId_ NOTIFY itemIdChanged)
    // The project's icon view, whose image or initials and tint the drag shows under the
    // pointer.
    Q_PROPERTY(QQuickItem* iconItem MEMBER iconItem_ NOTIFY iconItemChanged)
public:
    explicit TileDragView(QQuickItem* parent = nullptr);
    ~TileDragView() override;

signals:
    void clicked();
    void dropsChanged();
    void itemIdChanged();
    void iconItemChanged();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void runDrag(QPointF pressPoint);

    QPointer<ShelfDrops> drops_;
    QString itemId_;
    QPointer<QQuickItem> iconItem_;
    std::shared_ptr<TileDragSource> source_;
    QPointF pressPoint_;
};

} // namespace tidewell
