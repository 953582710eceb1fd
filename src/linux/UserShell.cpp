#include "linux/UserShell.h"

#include <pwd.h>
#include <unistd.h>

namespace tidewell {

std::string userShell() {
    const passwd* entry = ::getpwuid(::getuid());
    if (entry && entry->pw_shell && entry->pw_shell[0] == '/')
        return entry->pw_shell;
    return "/bin/sh";
}

} // namespace tidewell
