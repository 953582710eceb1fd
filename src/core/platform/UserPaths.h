#pragma once

#include <string>

namespace tidewell {

// Where the current user's files live. Filled in once at start-up by the platform layer.
struct UserPaths {
    std::string home;
    std::string applicationSupport; // per-user application data (XDG data home on Linux)
};

} // namespace tidewell
