#include "linux/CurrentApplicationLocation.h"

#include "core/platform/PathText.h"

#include <climits>
#include <sys/stat.h>
#include <unistd.h>

namespace tidewell {
namespace {

std::string parentOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos || slash == 0 ? "/" : path.substr(0, slash);
}

bool isRegularFile(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

} // namespace

ApplicationLocation applicationLocation(const std::string& executable) {
    const std::string binFolder = parentOf(executable);
    const std::string prefix = parentOf(binFolder);
    const std::string share = prefix + (prefix == "/" ? "" : "/") + "share/";
    const bool isInstalled = PathText::lastComponent(executable) == "tidewell" &&
                             PathText::lastComponent(binFolder) == "bin" &&
                             isRegularFile(share + "applications/" + desktopEntryFileName);
    return {executable, isInstalled, isInstalled ? share + "tidewell" : ""};
}

ApplicationLocation currentApplicationLocation() {
    char buffer[PATH_MAX];
    const ssize_t length = ::readlink("/proc/self/exe", buffer, sizeof buffer - 1);
    if (length <= 0)
        return {};
    std::string executable(buffer, static_cast<std::size_t>(length));
    // A package upgrade replaces the file under a running process; the path still names
    // the installed program.
    constexpr std::string_view deleted = " (deleted)";
    if (executable.ends_with(deleted))
        executable.resize(executable.size() - deleted.size());
    return applicationLocation(executable);
}

} // namespace tidewell
