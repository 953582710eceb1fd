#pragma once

#include <QUrl>
#include <string>

namespace tidewell {

class IconCache;
struct NotchItem;

// The image an item's icon view loads (see projectImagePath), as a file URL that names the
// file's modification time: a new icon copied over the old one under the same name is a new
// URL, so the views load it again. Empty when the initials are drawn.
QUrl projectImageUrl(const NotchItem& item, const IconCache& cache,
                     const std::string& applicationFolder);

} // namespace tidewell
