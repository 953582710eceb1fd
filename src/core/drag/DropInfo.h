#pragma once

#include "core/platform/Geometry.h"

#include <optional>
#include <string>
#include <vector>

namespace tidewell {

// A drag as a drop target sees it while it hovers.
struct DropInfo {
    Point location;                   // in the target's own coordinates, x from its left edge
    std::vector<std::string> formats; // MIME formats offered
};

// The drop's data, read once on the main thread when the drop happens.
struct DroppedData {
    std::optional<std::string> uriList;   // raw bytes of text/uri-list
    std::optional<std::string> plainText; // raw bytes of text/plain
};

enum class DropOperation { move, copy };

} // namespace tidewell
