#include "core/drag/ShelfDragState.h"

#include <utility>

namespace tidewell {

void ShelfDragState::setDraggedItemID(std::optional<Uuid> value) {
    draggedItemID_ = std::move(value);
    changed.emit();
}

void ShelfDragState::setFolderDropPosition(std::optional<ShelfDropPosition> value, bool animated) {
    folderDropPosition_ = std::move(value);
    isPositionChangeAnimated_ = animated;
    changed.emit();
}

void ShelfDragState::setIsCommittingFolderDrop(bool value) {
    isCommittingFolderDrop_ = value;
    changed.emit();
}

void ShelfDragState::setLastReorderPointer(std::optional<Point> value) {
    lastReorderPointer_ = value;
    changed.emit();
}

void ShelfDragState::setLastFolderHoverPointer(std::optional<Point> value) {
    lastFolderHoverPointer_ = value;
    changed.emit();
}

} // namespace tidewell
