#pragma once

#include "core/drag/DropInfo.h"
#include "core/drag/ShelfDropContext.h"

#include <optional>

namespace tidewell {

// The drop target on the gap that a hovering folder opened. Resting on the gap keeps it
// open; a drop there lands where the gap is.
class ShelfGapDrop {
public:
    explicit ShelfGapDrop(ShelfDropContext context);

    bool validateDrop(const DropInfo& info) const;
    void dropEntered(const DropInfo& info);
    std::optional<DropOperation> dropUpdated(const DropInfo& info);
    void dropExited(const DropInfo& info);
    bool performDrop(const DropInfo& info, const DroppedData& data);

private:
    ShelfDropContext context_;
};

} // namespace tidewell
