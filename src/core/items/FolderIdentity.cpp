#include "core/items/FolderIdentity.h"

#include "core/platform/PathText.h"

#include <cstdint>

namespace tidewell {

const std::string& FolderIdentity::normalizedPath(const std::string& path) {
    const auto known = normalized_.find(path);
    if (known != normalized_.end())
        return known->second;
    const std::string absolute =
        path.starts_with('/') ? path : PathText::absolute(path, files_.currentDirectory());
    return normalized_[path] = files_.resolveSymlinks(PathText::standardized(absolute));
}

const std::string& FolderIdentity::identifier(const std::string& path) {
    const auto known = identifiers_.find(path);
    if (known != identifiers_.end())
        return known->second;
    std::string identifier;
    if (const auto identity = files_.identity(path)) {
        // The device number is written as a signed 32-bit value, as earlier files have it.
        identifier = "ino:" + std::to_string(static_cast<std::int32_t>(identity->device)) + ":" +
                     std::to_string(identity->inode);
    } else {
        identifier = "path:" + normalizedPath(path);
    }
    return identifiers_[path] = std::move(identifier);
}

} // namespace tidewell
