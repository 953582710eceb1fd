#include "gui/shelf/TileDragView.h"

#include "core/drag/ShelfItemMove.h"
#include "core/drag/TileDragSource.h"
#include "core/shelf/RoundedHitShape.h"
#include "gui/shelf/ShelfToolTip.h"
#include "gui/shelf/TileDragImage.h"

#include <QDrag>
#include <QMimeData>
#include <QQuickWindow>
#include <utility>

namespace tidewell {

namespace {

Point corePoint(QPointF point) {
    return {point.x(), point.y()};
}

// What the icon view shows now. Its image is read again from its file (a
// project's cached icon, small and local).
ProjectIconFace faceOf(const QQuickItem& icon) {
    ProjectIconFace face{.image = {},
                         .tint = icon.property("tint").value<QColor>(),
                         .initials = icon.property("initials").toString()};
    if (icon.property("showsImage").toBool())
        face.image = QImage(icon.property("imageSource").toUrl().toLocalFile());
    return face;
}

} // namespace

TileDragView::TileDragView(QQuickItem* parent)
    : QQuickItem(parent), source_(std::make_shared<TileDragSource>()) {
    setAcceptedMouseButtons(Qt::LeftButton | Qt::RightButton);
    setAcceptHoverEvents(true);
}

TileDragView::~TileDragView() = default;

bool TileDragView::isInsideCorners(QPointF point) const {
    return RoundedHitShape::contains({width(), height()}, cornerRadius_, {point.x(), point.y()});
}

void TileDragView::setHovering(bool isHovering) {
    if (isHovering == isHovering_)
        return;
    isHovering_ = isHovering;
    if (isHovering && !toolTipView_) {
        toolTipView_ = std::make_unique<ShelfToolTip>();
        toolTipView_->setTarget(this);
    }
    if (toolTipView_) {
        toolTipView_->setProperty("text", toolTip_);
        toolTipView_->setProperty("isGlass", isGlass_);
        toolTipView_->setShown(isHovering);
    }
    emit hoveringChanged();
}

void TileDragView::hoverEnterEvent(QHoverEvent* event) {
    setHovering(isInsideCorners(event->position()));
}

void TileDragView::hoverMoveEvent(QHoverEvent* event) {
    setHovering(isInsideCorners(event->position()));
}

void TileDragView::hoverLeaveEvent(QHoverEvent*) {
    setHovering(false);
}

void TileDragView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        isRightPressed_ = isInsideCorners(event->position());
        event->setAccepted(isRightPressed_);
        return;
    }
    pressPoint_ = event->position();
    source_->press(corePoint(event->scenePosition()));
    // The press is the tile's: a strip that scrolls must not take it over for a flick.
    setKeepMouseGrab(true);
    event->accept();
}

void TileDragView::mouseMoveEvent(QMouseEvent* event) {
    if (!source_->drag(corePoint(event->scenePosition())))
        return;
    // At once, while the button is surely still held: a release already on its way must end
    // the session, not reach a drag that has not started yet. The session's own event loop
    // runs inside this call; a tile removed meanwhile is deleted only after it returns.
    ungrabMouse();
    runDrag(pressPoint_);
}

void TileDragView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        if (std::exchange(isRightPressed_, false) && isInsideCorners(event->position()))
            emit menuRequested();
        return;
    }
    if (source_->release())
        emit clicked();
}

void TileDragView::runDrag(QPointF pressPoint) {
    const std::optional<Uuid> id = Uuid::parse(itemId_.toStdString());
    if (!id || !drops_ || !window())
        return;
    const qreal scale = window()->effectiveDevicePixelRatio();
    auto* data = new QMimeData;
    data->setData(QString::fromUtf8(shelfItemMoveType),
                  QByteArray::fromStdString(ShelfItemMove{*id}.encoded()));
    QDrag* drag = new QDrag(drops_);
    drag->setMimeData(data);
    if (iconItem_) {
        const QPixmap image = tileDragImage(faceOf(*iconItem_), scale);
        drag->setPixmap(image);
        // The image is centred on the tile.
        const QPointF imageOrigin(width() / 2 - image.deviceIndependentSize().width() / 2,
                                  height() / 2 - image.deviceIndependentSize().height() / 2);
        drag->setHotSpot((pressPoint - imageOrigin).toPoint());
    }
    // Copies: the session may outlive this tile, removed meanwhile by another process.
    const QString itemId = itemId_;
    const std::shared_ptr<TileDragSource> source = source_;
    drops_->runTileDrag(*drag, itemId, source);
    drag->deleteLater();
}

} // namespace tidewell
