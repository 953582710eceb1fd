#include "core/drag/ShelfTileDrop.h"

#include "core/drag/DragTypes.h"
#include "core/drag/FolderDropSession.h"

#include <algorithm>
#include <cmath>

namespace tidewell {
namespace {

constexpr double reorderHysteresis = 30.0;
constexpr double folderHoverHysteresis = 52.0;
// A new hover lands behind the last tile right of this x, and one already behind it stays
// there from this x on.
constexpr double behindThreshold = 44.0;
constexpr double stayBehindThreshold = 16.0;

double distance(const Point& a, const Point& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

} // namespace

ShelfTileDrop::ShelfTileDrop(const Uuid& targetID, ShelfDropContext context)
    : targetID_(targetID), context_(context) {}

bool ShelfTileDrop::validateDrop(const DropInfo& info) const {
    return DragTypes::isTileMove(info.formats) || DragTypes::offersFolder(info.formats);
}

void ShelfTileDrop::dropEntered(const DropInfo& info) {
    if (!DragTypes::isTileMove(info.formats)) {
        hoverFolder(info);
        return;
    }
    const auto dragged = context_.state.draggedItemID();
    if (!dragged || *dragged == targetID_ || !hasTravelled())
        return;
    context_.store.reorderFavorite(*dragged, targetID_);
}

std::optional<DropOperation> ShelfTileDrop::dropUpdated(const DropInfo& info) {
    if (DragTypes::isTileMove(info.formats))
        return DropOperation::move;
    hoverFolder(info);
    return DropOperation::copy;
}

void ShelfTileDrop::dropExited(const DropInfo&) {
    FolderDropSession::scheduleClearIfNeeded(context_);
}

bool ShelfTileDrop::performDrop(const DropInfo& info, const DroppedData& data) {
    if (DragTypes::isTileMove(info.formats)) {
        const bool wasDragging = context_.state.draggedItemID().has_value();
        context_.state.setDraggedItemID(std::nullopt);
        context_.state.setLastReorderPointer(std::nullopt);
        if (wasDragging)
            context_.store.saveFavoriteOrder();
        return wasDragging;
    }
    // A folder dropped straight onto a tile lands in front of it.
    const auto insertBefore =
        insertionBefore(context_.state.folderDropPosition(), context_.store.favorites())
            .value_or(targetID_);
    return FolderDropSession::commit(data, insertBefore, context_);
}

std::optional<Uuid> ShelfTileDrop::insertionBefore(const std::optional<ShelfDropPosition>& position,
                                                   const std::vector<NotchItem>& favorites) {
    if (!position)
        return std::nullopt;
    if (position->edge == ShelfDropPosition::Edge::before)
        return position->id;
    const auto found =
        std::find_if(favorites.begin(), favorites.end(),
                     [&position](const NotchItem& item) { return item.id == position->id; });
    if (found == favorites.end() || found + 1 == favorites.end())
        return std::nullopt;
    return (found + 1)->id;
}

bool ShelfTileDrop::hasTravelled() {
    const Point pointer = context_.pointer.location();
    const auto& last = context_.state.lastReorderPointer();
    if (last && distance(*last, pointer) < reorderHysteresis)
        return false;
    context_.state.setLastReorderPointer(pointer);
    return true;
}

void ShelfTileDrop::hoverFolder(const DropInfo& info) {
    if (context_.state.isCommittingFolderDrop())
        return;
    context_.layout.voidScheduledSlotClears();
    applyFolderHover(info.location.x);
}

void ShelfTileDrop::applyFolderHover(double x) {
    const std::vector<NotchItem> favorites = context_.store.favorites();
    const auto& current = context_.state.folderDropPosition();
    const ShelfDropPosition next = hoverPosition(x, favorites);
    if (current == next)
        return;
    // A different position with the same insertion point leaves the gap where it is.
    if (current && insertionBefore(current, favorites) == insertionBefore(next, favorites))
        return;
    const Point pointer = context_.pointer.location();
    if (isFolderHoverHeldBack(pointer))
        return;
    context_.state.setLastFolderHoverPointer(pointer);
    if (context_.layout.isReservingSlot()) {
        context_.state.setFolderDropPosition(next, false);
        return;
    }
    context_.state.setFolderDropPosition(next, true);
    context_.layout.reserveFolderSlot(static_cast<int>(favorites.size()));
}

ShelfDropPosition ShelfTileDrop::hoverPosition(double x,
                                               const std::vector<NotchItem>& favorites) const {
    const bool isLast = !favorites.empty() && favorites.back().id == targetID_;
    if (!isLast)
        return ShelfDropPosition::before(targetID_);
    const bool isBehind = context_.state.folderDropPosition() == ShelfDropPosition::after(targetID_)
                              ? x >= stayBehindThreshold
                              : x > behindThreshold;
    return isBehind ? ShelfDropPosition::after(targetID_) : ShelfDropPosition::before(targetID_);
}

// A first hover is never held back; a gap already shown moves only after the pointer has
// travelled, so that it does not jump back and forth while tiles slide under the pointer.
bool ShelfTileDrop::isFolderHoverHeldBack(const Point& pointer) const {
    const auto& last = context_.state.lastFolderHoverPointer();
    return context_.state.folderDropPosition() && last &&
           distance(*last, pointer) < folderHoverHysteresis;
}

} // namespace tidewell
