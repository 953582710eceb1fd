#include "core/platform/PathContainment.h"

#include "core/platform/PathText.h"

#include <optional>

namespace tidewell {
namespace {

bool isBelow(const std::string& path, const std::string& folder) {
    return path.starts_with(folder == "/" ? folder : folder + "/") && path != folder;
}

} // namespace

bool isInsideFolder(const FileSystem& files, const std::string& path, const std::string& folder) {
    if (path.empty() || folder.empty())
        return false;
    const std::string directory = files.currentDirectory();
    if (!isBelow(PathText::standardized(PathText::absolute(path, directory)),
                 PathText::standardized(PathText::absolute(folder, directory))))
        return false;
    const std::optional<std::string> resolvedPath = files.resolvedPath(path);
    const std::optional<std::string> resolvedFolder = files.resolvedPath(folder);
    return resolvedPath && resolvedFolder && isBelow(*resolvedPath, *resolvedFolder);
}

} // namespace tidewell
