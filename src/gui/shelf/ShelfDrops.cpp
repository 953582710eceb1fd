#include "gui/shelf/ShelfDrops.h"

#include "core/drag/ShelfContainerDrop.h"
#include "core/drag/ShelfDropContext.h"
#include "core/drag/ShelfGapDrop.h"
#include "core/drag/ShelfTileDrop.h"
#include "core/drag/TileDragActions.h"
#include "core/drag/TileDragSource.h"
#include "core/platform/PanelWindow.h"
#include "core/platform/Pointer.h"
#include "gui/shelf/TileDragImage.h"

#include <QDrag>
#include <QGuiApplication>
#include <QScreen>

namespace tidewell {

namespace {

QString gapTarget(const ShelfDragState& state, ShelfDropPosition::Edge edge) {
    const std::optional<ShelfDropPosition>& position = state.folderDropPosition();
    if (!position || position->edge != edge)
        return {};
    return QString::fromStdString(position->id.text());
}

} // namespace

ShelfDrops::ShelfDrops(ShelfDropContext& context) : context_(context) {
    stateConnection_ = context_.state.changed.connect([this] { emit stateChanged(); });
}

ShelfDrops::~ShelfDrops() = default;

QString ShelfDrops::draggedItemId() const {
    const std::optional<Uuid>& id = context_.state.draggedItemID();
    return id ? QString::fromStdString(id->text()) : QString();
}

QString ShelfDrops::gapBeforeId() const {
    return gapTarget(context_.state, ShelfDropPosition::Edge::before);
}

QString ShelfDrops::gapAfterId() const {
    return gapTarget(context_.state, ShelfDropPosition::Edge::after);
}

bool ShelfDrops::isGapAnimated() const {
    return context_.state.isPositionChangeAnimated();
}

// The drop targets are small values over the shared context, made for each event as the
// tiles they belong to come and go.
template <typename Operation>
auto ShelfDrops::withTarget(Target target, const QString& itemId, Operation operation) const {
    switch (target) {
    case Target::Tile: {
        const std::optional<Uuid> id = Uuid::parse(itemId.toStdString());
        ShelfTileDrop drop(id.value_or(Uuid()), context_);
        return operation(drop);
    }
    case Target::Gap: {
        ShelfGapDrop drop(context_);
        return operation(drop);
    }
    case Target::Container:
        break;
    }
    ShelfContainerDrop drop(context_);
    return operation(drop);
}

bool ShelfDrops::validateDrop(Target target, const QString& itemId, const DropInfo& info) const {
    return withTarget(target, itemId, [&](auto& drop) { return drop.validateDrop(info); });
}

void ShelfDrops::dropEntered(Target target, const QString& itemId, const DropInfo& info) {
    withTarget(target, itemId, [&](auto& drop) { drop.dropEntered(info); });
}

std::optional<DropOperation> ShelfDrops::dropUpdated(Target target, const QString& itemId,
                                                     const DropInfo& info) {
    return withTarget(target, itemId, [&](auto& drop) { return drop.dropUpdated(info); });
}

void ShelfDrops::dropExited(Target target, const QString& itemId, const DropInfo& info) {
    withTarget(target, itemId, [&](auto& drop) { drop.dropExited(info); });
}

bool ShelfDrops::performDrop(Target target, const QString& itemId, const DropInfo& info,
                             const DroppedData& data) {
    return withTarget(target, itemId, [&](auto& drop) { return drop.performDrop(info, data); });
}

void ShelfDrops::runTileDrag(QDrag& drag, const QString& itemId,
                             const std::shared_ptr<TileDragSource>& source) {
    const std::optional<Uuid> id = Uuid::parse(itemId.toStdString());
    if (!id)
        return;
    tileDrag_ = &drag;
    isNearShelf_.reset();
    showDragCursor(true);
    TileDragActions::dragBegan(context_, *id);
    const bool accepted = drag.exec(Qt::MoveAction) != Qt::IgnoreAction;
    tileDrag_.clear();
    switch (source->sessionEnded(accepted, context_.pointer.location(), context_.panel.frame())) {
    case TileDragSource::SessionEnd::accepted:
        break;
    case TileDragSource::SessionEnd::endedInside:
        TileDragActions::dragEnded(context_);
        break;
    case TileDragSource::SessionEnd::droppedOutside:
        TileDragActions::droppedOutside(context_, *id);
        break;
    }
}

void ShelfDrops::pointerMoved(Point screenPoint) {
    if (tileDrag_)
        showDragCursor(TileDragSource::isNearWindow(screenPoint, context_.panel.frame()));
}

// A drop target that takes the tile shows the move cursor; anywhere else the cursor tells
// whether letting go keeps the tile or makes it vanish.
void ShelfDrops::showDragCursor(bool isNearShelf) {
    if (isNearShelf_ == isNearShelf)
        return;
    isNearShelf_ = isNearShelf;
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QPixmap cursor = tileDragCursor(isNearShelf, screen ? screen->devicePixelRatio() : 1);
    tileDrag_->setDragCursor(cursor, Qt::IgnoreAction);
    tileDrag_->setDragCursor(tileDragCursor(true, cursor.devicePixelRatio()), Qt::MoveAction);
}

} // namespace tidewell
