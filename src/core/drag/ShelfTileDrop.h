#pragma once

#include "core/drag/DropInfo.h"
#include "core/drag/ShelfDropContext.h"
#include "core/drag/ShelfDropPosition.h"
#include "core/items/NotchItem.h"

#include <optional>
#include <vector>

namespace tidewell {

// The drop target on a pinned tile. It serves two kinds of drag: a tile moved within the
// shelf takes the target's place live, and a folder hovering over the tile opens a gap in
// front of it or, on the last tile, behind it.
class ShelfTileDrop {
public:
    ShelfTileDrop(const Uuid& targetID, ShelfDropContext context);

    bool validateDrop(const DropInfo& info) const;
    void dropEntered(const DropInfo& info);
    std::optional<DropOperation> dropUpdated(const DropInfo& info);
    void dropExited(const DropInfo& info);
    bool performDrop(const DropInfo& info, const DroppedData& data);

    // The pinned item in front of which dropped folders go; none when they go after the
    // placed ones.
    static std::optional<Uuid> insertionBefore(const std::optional<ShelfDropPosition>& position,
                                               const std::vector<NotchItem>& favorites);

private:
    // Keeps a tile from flipping back and forth while the tiles slide under a still pointer.
    bool hasTravelled();
    void hoverFolder(const DropInfo& info);
    void applyFolderHover(double x);
    ShelfDropPosition hoverPosition(double x, const std::vector<NotchItem>& favorites) const;
    bool isFolderHoverHeldBack(const Point& pointer) const;

    Uuid targetID_;
    ShelfDropContext context_;
};

} // namespace tidewell
