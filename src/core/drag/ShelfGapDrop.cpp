#include "core/drag/ShelfGapDrop.h"

#include "core/drag/DragTypes.h"
#include "core/drag/FolderDropSession.h"
#include "core/drag/ShelfTileDrop.h"

namespace tidewell {

ShelfGapDrop::ShelfGapDrop(ShelfDropContext context) : context_(context) {}

bool ShelfGapDrop::validateDrop(const DropInfo& info) const {
    return DragTypes::offersFolder(info.formats);
}

void ShelfGapDrop::dropEntered(const DropInfo&) {
    context_.layout.voidScheduledSlotClears();
}

std::optional<DropOperation> ShelfGapDrop::dropUpdated(const DropInfo&) {
    context_.layout.voidScheduledSlotClears();
    return DropOperation::copy;
}

void ShelfGapDrop::dropExited(const DropInfo&) {
    FolderDropSession::scheduleClearIfNeeded(context_);
}

bool ShelfGapDrop::performDrop(const DropInfo&, const DroppedData& data) {
    const auto insertBefore = ShelfTileDrop::insertionBefore(context_.state.folderDropPosition(),
                                                             context_.store.favorites());
    return FolderDropSession::commit(data, insertBefore, context_);
}

} // namespace tidewell
