#pragma once

#include "core/items/Uuid.h"

namespace tidewell {

// Where a folder hovering over the shelf would land: in front of or behind a pinned item.
struct ShelfDropPosition {
    enum class Edge { before, after };

    Edge edge = Edge::before;
    Uuid id;

    static ShelfDropPosition before(const Uuid& id) { return {Edge::before, id}; }
    static ShelfDropPosition after(const Uuid& id) { return {Edge::after, id}; }

    bool operator==(const ShelfDropPosition&) const = default;
};

} // namespace tidewell
