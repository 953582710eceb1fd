#pragma once

#include "core/items/FolderIdentity.h"
#include "core/items/NotchItem.h"

#include <vector>

namespace tidewell {

// Merges the records that name the same folder into the oldest one, which keeps its id,
// path and creation date and takes the newer record's look and settings. The result is
// in ascending creation order with every path normalised.
std::vector<NotchItem> deduplicated(std::vector<NotchItem> items, FolderIdentity& folders);

} // namespace tidewell
