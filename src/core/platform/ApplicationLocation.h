#pragma once

#include <string>

namespace tidewell {

// Where the running application lives. Only an installed copy can be started at login:
// a build tree may be gone or moved by the next login.
struct ApplicationLocation {
    std::string executable; // absolute path of the running executable
    bool isInstalled = false;
};

} // namespace tidewell
