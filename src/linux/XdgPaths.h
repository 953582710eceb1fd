#pragma once

#include "core/platform/UserPaths.h"

#include <string>

namespace tidewell::XdgPaths {

// Read from the environment on every call, as the XDG base-directory rules say: a variable
// counts only when it holds an absolute path.

// The home folder ($HOME, else the password database) and the data home
// ($XDG_DATA_HOME, else ~/.local/share) as the application-support folder.
UserPaths userPaths();
// $XDG_CONFIG_HOME, else ~/.config.
std::string configHome();
// $XDG_RUNTIME_DIR, else the temporary folder ($TMPDIR, else /tmp).
std::string runtimeFolder();

} // namespace tidewell::XdgPaths
