#include "gui/TileDragArea.h"

#include "core/drag/ShelfItemMove.h"
#include "core/drag/TileDragSource.h"
#include "gui/TileDragImage.h"

#include <QDrag>
#include <QMimeData>
#include <QQuickItemGrabResult>
#include <QQuickWindow>

namespace tidewell {

namespace {

constexpr qreal dragIconSize = 48;

Point corePoint(QPointF point) {
    return {point.x(), point.y()};
}

} // namespace

TileDragArea::TileDragArea(QQuickItem* parent)
    : QQuickItem(parent), source_(std::make_shared<TileDragSource>()) {
    setAcceptedMouseButtons(Qt::LeftButton);
}

TileDragArea::~TileDragArea() = default;

void TileDragArea::mousePressEvent(QMouseEvent* event) {
    pressPoint_ = event->position();
    source_->press(corePoint(event->scenePosition()));
    grabIcon();
    // The press is the tile's: a strip that scrolls must not take it over for a flick.
    setKeepMouseGrab(true);
    event->accept();
}

void TileDragArea::mouseMoveEvent(QMouseEvent* event) {
    if (!source_->drag(corePoint(event->scenePosition())))
        return;
    // At once, while the button is surely still held: a release already on its way must end
    // the session, not reach a drag that has not started yet. The session's own event loop
    // runs inside this call; a tile removed meanwhile is deleted only after it returns.
    ungrabMouse();
    runDrag(pressPoint_);
}

void TileDragArea::mouseReleaseEvent(QMouseEvent*) {
    if (source_->release())
        emit clicked();
}

// Taken at the press, so that the image is ready when the drag starts.
void TileDragArea::grabIcon() {
    iconGrab_.reset();
    if (!iconItem_ || !window())
        return;
    const qreal side = dragIconSize * window()->effectiveDevicePixelRatio();
    iconGrab_ = iconItem_->grabToImage(QSize(qRound(side), qRound(side)));
}

void TileDragArea::runDrag(QPointF pressPoint) {
    const std::optional<Uuid> id = Uuid::parse(itemId_.toStdString());
    if (!id || !drops_ || !window())
        return;
    const qreal scale = window()->effectiveDevicePixelRatio();
    auto* data = new QMimeData;
    data->setData(QString::fromUtf8(shelfItemMoveType),
                  QByteArray::fromStdString(ShelfItemMove{*id}.encoded()));
    QDrag* drag = new QDrag(drops_);
    drag->setMimeData(data);
    if (iconGrab_ && !iconGrab_->image().isNull()) {
        const QPixmap image = tileDragImage(iconGrab_->image(), scale);
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
