#include "gui/shelf/ShelfDropArea.h"

#include "core/drag/DragTypes.h"
#include "core/drag/DropInfo.h"

#include <QMimeData>

namespace tidewell {

namespace {

std::vector<std::string> formatList(const QStringList& formats) {
    std::vector<std::string> list;
    list.reserve(static_cast<std::size_t>(formats.size()));
    for (const QString& format : formats)
        list.push_back(format.toStdString());
    return list;
}

DropInfo dropInfo(const QDropEvent& event) {
    return {.location = {event.position().x(), event.position().y()},
            .formats = formatList(event.mimeData()->formats())};
}

std::optional<std::string> bytes(const QMimeData& data, const QString& format) {
    if (!data.hasFormat(format))
        return std::nullopt;
    return data.data(format).toStdString();
}

DroppedData droppedData(const QMimeData& data) {
    return {.uriList = bytes(data, QStringLiteral("text/uri-list")),
            .plainText = bytes(data, QStringLiteral("text/plain"))};
}

// A tile moves within the shelf; anything else is copied into it.
DropOperation operationFor(const DropInfo& info) {
    return DragTypes::isTileMove(info.formats) ? DropOperation::move : DropOperation::copy;
}

} // namespace

ShelfDropArea::ShelfDropArea(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemAcceptsDrops);
}

void ShelfDropArea::propose(QDropEvent& event, DropOperation operation) {
    event.setDropAction(operation == DropOperation::move ? Qt::MoveAction : Qt::CopyAction);
    event.accept();
}

void ShelfDropArea::dragEnterEvent(QDragEnterEvent* event) {
    const DropInfo info = dropInfo(*event);
    if (!drops_ || !drops_->validateDrop(target_, itemId_, info)) {
        event->ignore();
        return;
    }
    formats_ = event->mimeData()->formats();
    drops_->dropEntered(target_, itemId_, info);
    propose(*event, operationFor(info));
}

void ShelfDropArea::dragMoveEvent(QDragMoveEvent* event) {
    if (!drops_)
        return event->ignore();
    if (const auto operation = drops_->dropUpdated(target_, itemId_, dropInfo(*event)))
        propose(*event, *operation);
    else
        event->ignore();
}

void ShelfDropArea::dragLeaveEvent(QDragLeaveEvent*) {
    if (drops_)
        drops_->dropExited(target_, itemId_, {.location = {}, .formats = formatList(formats_)});
    formats_.clear();
}

void ShelfDropArea::dropEvent(QDropEvent* event) {
    formats_.clear();
    const DropInfo info = dropInfo(*event);
    if (!drops_ || !drops_->validateDrop(target_, itemId_, info))
        return event->ignore();
    if (!drops_->performDrop(target_, itemId_, info, droppedData(*event->mimeData())))
        return event->ignore();
    propose(*event, operationFor(info));
}

} // namespace tidewell
