#pragma once

#include "core/platform/FileSystem.h"

#include <optional>
#include <string>

namespace tidewell {

// Finds the image inside a project folder most likely to be its icon or logo, by name,
// place and shape. The walk is bounded (depth, entry count, pruned build folders) and
// visits siblings in name order so that equal scores always pick the same file.
class IconScanner {
public:
    explicit IconScanner(const FileSystem& files) : files_(files) {}

    std::optional<std::string> bestIcon(const std::string& folder) const;

    bool isInPreferredDirectory(const std::string& file, const std::string& projectRoot) const;
    bool isSquare(const std::string& file) const;

private:
    const FileSystem& files_;
};

} // namespace tidewell
