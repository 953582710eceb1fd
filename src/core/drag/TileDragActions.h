#pragma once

#include "core/drag/ShelfDropContext.h"
#include "core/items/Uuid.h"

namespace tidewell {

// What the shelf does when a tile's drag session starts and ends without a drop target.
namespace TileDragActions {

void dragBegan(ShelfDropContext& context, const Uuid& id);
// Unpins the item and sizes the shelf for one tile fewer.
void droppedOutside(ShelfDropContext& context, const Uuid& id);
// Keeps the order the drag left.
void dragEnded(ShelfDropContext& context);

} // namespace TileDragActions
} // namespace tidewell
