#include "core/drag/ShelfDragReset.h"

namespace tidewell {

ShelfDragReset::ShelfDragReset(ShelfLayout& layout, ShelfDragState& state)
    : layout_(layout), state_(state), wasExpanded_(layout.isExpanded()),
      connection_(layout.changed.connect([this] { layoutChanged(); })) {}

void ShelfDragReset::layoutChanged() {
    const bool isExpanded = layout_.isExpanded();
    const bool startsClosing = wasExpanded_ && !isExpanded;
    wasExpanded_ = isExpanded;
    if (!startsClosing)
        return;
    state_.setDraggedItemID(std::nullopt);
    state_.setFolderDropPosition(std::nullopt, true);
    state_.setIsCommittingFolderDrop(false);
    state_.setLastFolderHoverPointer(std::nullopt);
    layout_.setIsReservingSlot(false);
}

} // namespace tidewell
