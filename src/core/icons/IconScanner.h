#pragma once

#include "core/icons/ImageFormats.h"
#include "core/platform/FileSystem.h"

#include <optional>
#include <string>

namespace tidewell {

// Finds the image inside a project folder most likely to be its icon or logo, by name,
// place and shape. The walk is bounded (depth, entry count, pruned build folders) and
// visits siblings in name order so that equal scores always pick the same file. Images the
// application cannot draw are never picked.
class IconScanner {
public:
    IconScanner(const FileSystem& files, const ImageFormats& formats)
        : files_(files), formats_(formats) {}

    std::optional<std::string> bestIcon(const std::string& folder) const;

    bool isInPreferredDirectory(const std::string& file, const std::string& projectRoot) const;
    bool isSquare(const std::string& file) const;
    // An accepted image extension (lower case) that the application can draw.
    bool isDrawable(std::string_view extension) const;

private:
    const FileSystem& files_;
    const ImageFormats& formats_;
};

} // namespace tidewell
