#pragma once

#include "gui/shelf/ShelfDrops.h"

#include <QPointer>
#include <QQuickItem>
#include <memory>

namespace tidewell {

class ShelfToolTip;
class TileDragSource;

// Covers a tile and owns its pointer: a left press released in place is a click; one that
// travels starts a drag of the tile, which reorders the shelf, or unpins the project when it
// ends far outside the shelf. Hovering and the right button count only inside the tile's
// rounded corners; a right click asks for the tile's menu, and a rest there shows the tile's
// tooltip, made the first time. The wheel passes to the strip.
class TileDragView : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(ShelfDrops* drops MEMBER drops_ NOTIFY dropsChanged)
    Q_PROPERTY(QString itemId MEMBER itemId_ NOTIFY itemIdChanged)
    // The project's icon view, whose image or initials and tint the drag shows under the
    // pointer.
    Q_PROPERTY(QQuickItem* iconItem MEMBER iconItem_ NOTIFY iconItemChanged)
    Q_PROPERTY(qreal cornerRadius MEMBER cornerRadius_ NOTIFY cornerRadiusChanged)
    Q_PROPERTY(bool hovering READ isHovering NOTIFY hoveringChanged)
    Q_PROPERTY(QString toolTip MEMBER toolTip_ NOTIFY toolTipChanged)
    // Whether the shelf has the glass look, which its tooltips take.
    Q_PROPERTY(bool isGlass MEMBER isGlass_ NOTIFY isGlassChanged)
public:
    explicit TileDragView(QQuickItem* parent = nullptr);
    ~TileDragView() override;

    bool isHovering() const { return isHovering_; }

signals:
    void clicked();
    void menuRequested();
    void dropsChanged();
    void itemIdChanged();
    void iconItemChanged();
    void cornerRadiusChanged();
    void hoveringChanged();
    void toolTipChanged();
    void isGlassChanged();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hoverEnterEvent(QHoverEvent* event) override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;

private:
    void runDrag(QPointF pressPoint);
    bool isInsideCorners(QPointF point) const;
    void setHovering(bool isHovering);

    QPointer<ShelfDrops> drops_;
    QString itemId_;
    QPointer<QQuickItem> iconItem_;
    std::shared_ptr<TileDragSource> source_;
    QPointF pressPoint_;
    qreal cornerRadius_ = 0;
    bool isHovering_ = false;
    bool isRightPressed_ = false;
    QString toolTip_;
    bool isGlass_ = false;
    std::unique_ptr<ShelfToolTip> toolTipView_;
};

} // namespace tidewell
