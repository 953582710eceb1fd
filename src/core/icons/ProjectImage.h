#pragma once

#include "core/icons/IconCache.h"
#include "core/items/NotchItem.h"

#include <optional>
#include <string>

namespace tidewell {

// The file an item's icon view may load: only copies in the icon cache or images shipped in
// the application's installed data folder (empty when not installed), where the path is
// judged as the kernel resolves it. Paths anywhere else are never read, so a tile cannot be
// made to load a file the user never handed to the cache. A file that then fails to load
// falls back to the initials in the view.
std::optional<std::string> projectImagePath(const NotchItem& item, const IconCache& cache,
                                            const std::string& applicationFolder);

} // namespace tidewell
