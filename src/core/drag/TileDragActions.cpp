#include "core/drag/TileDragActions.h"

namespace tidewell::TileDragActions {

void dragBegan(ShelfDropContext& context, const Uuid& id) {
    context.state.setDraggedItemID(id);
    context.state.setLastReorderPointer(std::nullopt);
}

void droppedOutside(ShelfDropContext& context, const Uuid& id) {
    context.state.setDraggedItemID(std::nullopt);
    context.store.unpin(id);
    context.layout.setExpandedSize(
        context.layout.size(static_cast<int>(context.store.favorites().size())));
}

void dragEnded(ShelfDropContext& context) {
    context.state.setDraggedItemID(std::nullopt);
    context.state.setLastReorderPointer(std::nullopt);
    context.store.saveFavoriteOrder();
}

} // namespace tidewell::TileDragActions
