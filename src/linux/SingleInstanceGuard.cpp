#include "linux/SingleInstanceGuard.h"

#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <unistd.h>

namespace tidewell {

std::unique_ptr<SingleInstanceGuard> SingleInstanceGuard::acquire(const DataFolder& folder) {
    // A folder that cannot be created shows up as a lock file that cannot be opened.
    std::error_code ignored;
    std::filesystem::create_directories(folder.path, ignored);

    // Close-on-exec: a program we start must not keep the lock alive after we end.
    const int descriptor = ::open(folder.appLock().c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor < 0)
        return nullptr;
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        ::close(descriptor);
        return nullptr;
    }
    return std::unique_ptr<SingleInstanceGuard>(new SingleInstanceGuard(descriptor));
}

SingleInstanceGuard::~SingleInstanceGuard() {
    ::flock(descriptor_, LOCK_UN);
    ::close(descriptor_);
}

} // namespace tidewell
