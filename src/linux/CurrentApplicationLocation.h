#pragma once

#include "core/platform/ApplicationLocation.h"

#include <string>

namespace tidewell {

// The desktop entry's file name, both in <prefix>/share/applications and in autostart.
inline constexpr const char* desktopEntryFileName = "com.quorvel.tidewell.desktop";

// An executable counts as installed when it is <prefix>/bin/tidewell and the prefix
// holds our desktop entry in share/applications.
ApplicationLocation applicationLocation(const std::string& executable);
// The same for the executable of this process.
ApplicationLocation currentApplicationLocation();

} // namespace tidewell
