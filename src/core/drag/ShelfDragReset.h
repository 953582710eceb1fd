#pragma once

#include "core/drag/ShelfDragState.h"
#include "core/observe/Signal.h"
#include "core/shelf/ShelfLayout.h"

namespace tidewell {

// Clears the shelf's drag state and releases the reserved slot when the shelf starts
// closing, so that it opens again with a clean strip.
class ShelfDragReset {
public:
    ShelfDragReset(ShelfLayout& layout, ShelfDragState& state);

private:
    void layoutChanged();

    ShelfLayout& layout_;
    ShelfDragState& state_;
    bool wasExpanded_;
    Connection connection_;
};

} // namespace tidewell
