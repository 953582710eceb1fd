#pragma once

#include "core/platform/UserPaths.h"

#include <string>

namespace tidewell {

// The entries of Tidewell's data folder and of the legacy folder it migrates from.
struct DataFolder {
    explicit DataFolder(const UserPaths& paths)
        : path(paths.applicationSupport + "/Tidewell"),
          legacyPath(paths.applicationSupport + "/LedgeBox") {}

    std::string path;
    std::string legacyPath;

    std::string itemsFile() const { return path + "/items.json"; }
    std::string itemsLock() const { return path + "/items.lock"; }
    std::string showOnLaunchFlag() const { return path + "/.showOnLaunch"; }
    std::string iconsFolder() const { return path + "/Icons"; }
    std::string appLock() const { return path + "/app.lock"; }
    std::string legacyItemsFile() const { return legacyPath + "/items.json"; }
    std::string legacyIconsFolder() const { return legacyPath + "/Icons"; }
};

} // namespace tidewell
