#pragma once

#include "core/items/Uuid.h"

#include <optional>
#include <string>
#include <string_view>

namespace tidewell {

// The MIME format of a tile dragged within the shelf.
inline constexpr std::string_view shelfItemMoveType = "com.quorvel.tidewell.shelf-item-move";

// What a tile drag carries: the dragged item's id. The drop side only looks at the format;
// the dragged item is known from the shelf's drag state.
struct ShelfItemMove {
    Uuid id;

    // Compact JSON: {"id":"<upper-case UUID>"}.
    std::string encoded() const;
    // A JSON object with exactly one member, "id", holding a UUID; none for anything else.
    static std::optional<ShelfItemMove> decoded(std::string_view bytes);
};

} // namespace tidewell
