#include "core/icons/ProjectImage.h"

#include "core/platform/PathContainment.h"

namespace tidewell {

std::optional<std::string> projectImagePath(const NotchItem& item, const IconCache& cache,
                                            const std::string& applicationFolder) {
    if (!item.iconPath || item.iconPath->empty())
        return std::nullopt;
    const std::string& path = *item.iconPath;
    if (!cache.isManaged(path) && !isInsideFolder(cache.files(), path, applicationFolder))
        return std::nullopt;
    return path;
}

} // namespace tidewell
