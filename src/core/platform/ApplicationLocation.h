#pragma once

#include <string>

namespace tidewell {

// Where the running application lives. Only an installed copy can be started at login:
// a build tree may be gone or moved by the next login.
struct ApplicationLocation {
    std::string executable; // absolute path of the running executable
    bool isInstalled = false;
    // The installed data folder, <prefix>/share/tidewell, whose images tiles may show; empty
    // when not installed.
    std::string dataFolder;
};

} // namespace tidewell
