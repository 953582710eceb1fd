#include "core/icons/ProjectImage.h"

namespace tidewell {

std::optional<std::string> projectImagePath(const NotchItem& item, const IconCache& cache,
                                            const std::string& applicationFolder) {
    if (!item.iconPath || item.iconPath->empty())
        return std::nullopt;
    const std::string& path = *item.iconPath;
    const bool isShipped = !applicationFolder.empty() && path.starts_with(applicationFolder + "/");
    if (!cache.isManaged(path) && !isShipped)
        return std::nullopt;
    return path;
}

} // namespace tidewell
