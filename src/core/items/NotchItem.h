#pragma once

#include "core/items/Uuid.h"
#include "core/platform/Clock.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tidewell {

// One project folder on the shelf, pinned (a favourite) or recent.
struct NotchItem {
    Uuid id;
    std::string name;
    std::string path; // normalised: absolute, standardised, symbolic links resolved
    std::optional<std::string> iconPath;
    std::string initials;
    std::string tintHex;       // "#RRGGBB"
    std::string launchCommand; // empty = none
    bool isFavorite = false;
    Date createdAt;
    Date lastOpenedAt;
    std::optional<std::int64_t> sortOrder; // place among pinned items; none = not yet placed

    bool operator==(const NotchItem&) const = default;

    // Up to two characters drawn on a tile without an icon: "myProject" gives "MP".
    static std::string makeInitials(std::string_view name);
    // One of the seven palette colours, chosen by a hash of the name's UTF-8 bytes.
    static std::string makeTint(std::string_view name);
};

} // namespace tidewell
