#include "linux/PathExecutableLocator.h"

#include "core/platform/PathText.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace tidewell {
namespace {

bool isExecutableFile(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           ::access(path.c_str(), X_OK) == 0;
}

// Without $PATH, execvp searches the system's default folders.
std::string searchPath() {
    const char* path = std::getenv("PATH");
    return path ? path : "/bin:/usr/bin";
}

} // namespace

bool PathExecutableLocator::isInstalled(const std::string& name) const {
    if (name.empty())
        return false;
    if (name.find('/') != std::string::npos)
        return isExecutableFile(name);
    const std::string path = searchPath();
    // An empty entry stands for the current folder.
    return std::ranges::any_of(PathText::split(path, ':'), [&name](std::string_view folder) {
        return isExecutableFile((folder.empty() ? "." : std::string(folder)) + "/" + name);
    });
}

} // namespace tidewell
