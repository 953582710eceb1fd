#pragma once

#include "core/items/Uuid.h"
#include "core/platform/FileSystem.h"

#include <optional>
#include <string>

namespace tidewell {

// The folder of icon copies that tiles draw from: one file per item and extension,
// named after the item's id. Every failure here is silent.
class IconCache {
public:
    IconCache(FileSystem& files, std::string directory);

    const std::string& directory() const { return directory_; }
    const FileSystem& files() const { return files_; }
    bool isManaged(const std::string& path) const;
    // The path of the item's copy of the image, or none when there is nothing to copy or
    // the copy fails. A path already in the cache comes back unchanged.
    std::optional<std::string> cache(const std::optional<std::string>& sourcePath,
                                     const Uuid& itemID) const;

private:
    FileSystem& files_;
    std::string directory_;
};

} // namespace tidewell
