#include "linux/PathExecutableLocator.h"

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
    std::string_view rest = path;
    while (true) {
        const auto colon = rest.find(':');
        const std::string_view folder = rest.substr(0, colon);
        // An empty entry stands for the current folder.
        if (isExecutableFile((folder.empty() ? "." : std::string(folder)) + "/" + name))
            return true;
        if (colon == std::string_view::npos)
            return false;
        rest.remove_prefix(colon + 1);
    }
}

} // namespace tidewell
