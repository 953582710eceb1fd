#include "SyncFloor.h"

#include "linux/FileDescriptor.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>
#include <vector>

namespace tidewell::bench {
namespace {

void require(bool isDone, const std::string& what) {
    if (!isDone)
        throw std::runtime_error(what + ": " + std::strerror(errno));
}

void replaceDurably(const std::string& folder, const std::string& bytes) {
    const std::string target = folder + "/sync-floor";
    const std::string temporary = target + ".tmp";
    {
        const FileDescriptor file(
            ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        require(file.get() >= 0, "Cannot create " + temporary);
        require(::write(file.get(), bytes.data(), bytes.size()) ==
                        static_cast<ssize_t>(bytes.size()) &&
                    ::fsync(file.get()) == 0,
                "Cannot write " + temporary);
    }
    require(::rename(temporary.c_str(), target.c_str()) == 0, "Cannot rename " + temporary);
    const FileDescriptor directory(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    require(directory.get() >= 0 && ::fsync(directory.get()) == 0, "Cannot sync " + folder);
}

} // namespace

double syncFloorMilliseconds(const std::string& folder, std::size_t bytes, int runs) {
    const std::string content(bytes, 'x');
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        const auto begin = std::chrono::steady_clock::now();
        replaceDurably(folder, content);
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin)
                .count());
    }
    std::sort(times.begin(), times.end());
    ::unlink((folder + "/sync-floor").c_str());
    return times[times.size() / 2];
}

} // namespace tidewell::bench
