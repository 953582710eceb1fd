#pragma once

#include <string>

namespace tidewell {

// The login shell of the current user from the password database; /bin/sh when there is
// none. Terminals run the user's own shell, whatever $SHELL says.
std::string userShell();

} // namespace tidewell
