#pragma once

#include "core/drag/ShelfGapDrop.h"

namespace tidewell {

// The drop target on the whole row of the shelf's content. It acts as the gap does, except
// that entering it does not keep the gap open: only moving over it does.
class ShelfContainerDrop {
public:
    explicit ShelfContainerDrop(ShelfDropContext context) : gap_(context) {}

    bool validateDrop(const DropInfo& info) const { return gap_.validateDrop(info); }
    void dropEntered(const DropInfo&) {}
    std::optional<DropOperation> dropUpdated(const DropInfo& info) {
        return gap_.dropUpdated(info);
    }
    void dropExited(const DropInfo& info) { gap_.dropExited(info); }
    bool performDrop(const DropInfo& info, const DroppedData& data) {
        return gap_.performDrop(info, data);
    }

private:
    ShelfGapDrop gap_;
};

} // namespace tidewell
