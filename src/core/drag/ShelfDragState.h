#pragma once

#include "core/drag/ShelfDropPosition.h"
#include "core/items/Uuid.h"
#include "core/observe/Signal.h"
#include "core/platform/Geometry.h"

#include <optional>

namespace tidewell {

// The shelf's transient drag state, shared by every drop target and drag source of the
// shelf. Each setter stores the value and then emits `changed`. Main thread only.
class ShelfDragState {
public:
    // The tile being dragged within the shelf.
    const std::optional<Uuid>& draggedItemID() const { return draggedItemID_; }
    // Where a hovering folder would land; none while no gap is shown.
    const std::optional<ShelfDropPosition>& folderDropPosition() const {
        return folderDropPosition_;
    }
    // A drop is being decoded: hovering and leaving change nothing meanwhile.
    bool isCommittingFolderDrop() const { return isCommittingFolderDrop_; }
    // Screen pointer locations at the last reorder and at the last move of the gap.
    const std::optional<Point>& lastReorderPointer() const { return lastReorderPointer_; }
    const std::optional<Point>& lastFolderHoverPointer() const { return lastFolderHoverPointer_; }
    // False when the last position change must not animate (the gap jumps).
    bool isPositionChangeAnimated() const { return isPositionChangeAnimated_; }

    void setDraggedItemID(std::optional<Uuid> value);
    void setFolderDropPosition(std::optional<ShelfDropPosition> value, bool animated);
    void setIsCommittingFolderDrop(bool value);
    void setLastReorderPointer(std::optional<Point> value);
    void setLastFolderHoverPointer(std::optional<Point> value);

    Signal<> changed;

private:
    std::optional<Uuid> draggedItemID_;
    std::optional<ShelfDropPosition> folderDropPosition_;
    bool isCommittingFolderDrop_ = false;
    std::optional<Point> lastReorderPointer_;
    std::optional<Point> lastFolderHoverPointer_;
    bool isPositionChangeAnimated_ = true;
};

} // namespace tidewell
