#pragma once

#include "core/platform/FileSystem.h"

#include <string>

namespace tidewell {

// Whether the path names something below the folder (never the folder itself), both taken as
// the kernel resolves them: ".." and symbolic links cannot lead a path that reads as inside
// to a file outside. A path whose text lies outside is refused without asking the disk, so
// foreign paths, perhaps on a mount that hangs, are never examined.
bool isInsideFolder(const FileSystem& files, const std::string& path, const std::string& folder);

} // namespace tidewell
