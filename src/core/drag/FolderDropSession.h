#pragma once

#include "core/drag/DropInfo.h"
#include "core/drag/ShelfDropContext.h"
#include "core/items/Uuid.h"
#include "core/platform/PanelWindow.h"
#include "core/platform/Pointer.h"

#include <optional>

namespace tidewell {

// The work the shelf's three drop targets share for folders: taking a drop in and closing
// the gap that a hovering folder opened.
namespace FolderDropSession {

// Adds the dropped folders in front of `insertBefore` (none: after the placed ones) and
// closes the gap. Reads the uri-list's folders at once; failing that, decodes the item
// providers in the background, keeps their folders in drag order and finishes on the main
// queue. False when the drop offers nothing that could name a folder.
bool commit(const DroppedData& data, const std::optional<Uuid>& insertBefore,
            ShelfDropContext& context);
// After a target was left: closes the gap shortly unless a hover comes back first, or the
// pointer is still over the panel then. Nothing while a drop is being decoded.
void scheduleClearIfNeeded(ShelfDropContext& context);
// The panel is shown and the pointer is on it or within its margins.
bool pointerIsOverShelfPanel(const Pointer& pointer, const PanelWindow& panel);

} // namespace FolderDropSession
} // namespace tidewell
