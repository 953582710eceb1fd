#include "linux/PosixFileSystem.h"

#include "core/platform/Error.h"
#include "core/platform/PathText.h"
#include "linux/FileDescriptor.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <mutex>
#include <pthread.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tidewell {
namespace {

[[noreturn]] void fail(const std::string& what, const std::string& path, int error) {
    throw Error(what + " " + path + ": " + std::strerror(error));
}

// A folder's existence asked on a small thread of its own. The thread never touches the
// heap, where glibc would make it an arena of its own: a folder that answers at once then
// costs the command little more than the stat. Whichever side lets go last frees it.
class ExistenceRequest {
public:
    explicit ExistenceRequest(std::string path) : path_(std::move(path)) {}

    bool start() {
        pthread_attr_t attributes;
        ::pthread_attr_init(&attributes);
        ::pthread_attr_setstacksize(&attributes,
                                    std::max<std::size_t>(64 << 10, PTHREAD_STACK_MIN));
        ::pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
        pthread_t thread;
        const bool isStarted = ::pthread_create(&thread, &attributes, &ask, this) == 0;
        ::pthread_attr_destroy(&attributes);
        return isStarted;
    }

    // The answer, or none when the stat has not returned within the limit.
    std::optional<bool> answerWithin(std::chrono::milliseconds limit) {
        std::unique_lock lock(mutex_);
        answered_.wait_for(lock, limit, [this] { return exists_.has_value(); });
        return exists_;
    }

    void release() {
        if (holders_.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }

private:
    static void* ask(void* argument) {
        auto* request = static_cast<ExistenceRequest*>(argument);
        struct stat info {};
        const bool found = ::stat(request->path_.c_str(), &info) == 0;
        {
            const std::lock_guard lock(request->mutex_);
            request->exists_ = found;
        }
        request->answered_.notify_one();
        request->release();
        return nullptr;
    }

    const std::string path_;
    std::mutex mutex_;
    std::condition_variable answered_;
    std::optional<bool> exists_;
    std::atomic<int> holders_{2};
};

class FlockLock : public FileLock {
public:
    explicit FlockLock(int fd) : fd_(fd) {}
    ~FlockLock() override {
        ::flock(fd_, LOCK_UN);
        ::close(fd_);
    }

private:
    int fd_;
};

std::string parentOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

bool writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(fd, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// Opens a regular file for reading, or fails with errno set. Opening does not wait on a FIFO
// without a writer or a device, and what was opened is checked, not what a stat before the
// open saw: the name may have been replaced in between.
FileDescriptor openRegularFile(const std::string& path, struct stat& info) {
    FileDescriptor fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (fd.get() < 0 || ::fstat(fd.get(), &info) != 0)
        return {};
    if (!S_ISREG(info.st_mode)) {
        errno = S_ISDIR(info.st_mode) ? EISDIR : EINVAL;
        return {};
    }
    return fd;
}

std::optional<std::string> readUpTo(const std::string& path, std::size_t offset,
                                    std::size_t maxBytes) {
    struct stat info {};
    const FileDescriptor fd = openRegularFile(path, info);
    if (fd.get() < 0)
        return std::nullopt;
    if (offset > 0 && ::lseek(fd.get(), static_cast<off_t>(offset), SEEK_SET) < 0)
        return std::nullopt;
    // Sized from the status, one byte over to see the end, so that a whole file comes in
    // one read straight into the result.
    const auto size = static_cast<std::size_t>(std::max<off_t>(info.st_size, 0));
    std::string bytes(std::min(maxBytes, size > offset ? size - offset + 1 : 4096), '\0');
    std::size_t filled = 0;
    while (filled < maxBytes) {
        if (filled == bytes.size())
            bytes.resize(std::min(maxBytes, bytes.size() * 2));
        const ssize_t got = ::read(fd.get(), bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return std::nullopt;
        if (got == 0)
            break;
        filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    return bytes;
}

// A name no other writer uses, so that the temporary file can be created exclusively.
std::string temporaryNameBeside(const std::string& path) {
    static std::atomic<unsigned> counter{0};
    return parentOf(path) + "/." + PathText::lastComponent(path) + ".tmp-" +
           std::to_string(::getpid()) + "-" + std::to_string(counter++);
}

} // namespace

std::string PosixFileSystem::currentDirectory() const {
    char buffer[PATH_MAX];
    if (::getcwd(buffer, sizeof buffer))
        return buffer;
    const char* pwd = std::getenv("PWD");
    return pwd && *pwd == '/' ? pwd : "/";
}

bool PosixFileSystem::exists(const std::string& path) const {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0;
}

bool PosixFileSystem::isDirectory(const std::string& path) const {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

bool PosixFileSystem::isRegularFile(const std::string& path) const {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

// The stat runs on a thread of its own that is left behind when it does not answer in
// time: a call into a hung network mount cannot be interrupted, and the process can
// still exit.
std::optional<bool> PosixFileSystem::existsWithin(const std::string& path,
                                                  std::chrono::milliseconds limit) const {
    auto* request = new ExistenceRequest(path);
    if (!request->start()) {
        delete request;
        return exists(path); // no thread to spare: ask without a limit
    }
    const std::optional<bool> answer = request->answerWithin(limit);
    request->release();
    return answer;
}

std::optional<FileVersion> PosixFileSystem::fileVersion(const std::string& path) const {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0)
        return std::nullopt;
    const auto nanoseconds = [](const timespec& time) {
        return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
    };
    return FileVersion{
        {static_cast<std::int64_t>(info.st_dev), static_cast<std::uint64_t>(info.st_ino)},
        static_cast<std::int64_t>(info.st_size),
        nanoseconds(info.st_mtim),
        nanoseconds(info.st_ctim)};
}

std::optional<LinkStatus> PosixFileSystem::linkStatus(const std::string& path) const {
    struct stat info {};
    if (::lstat(path.c_str(), &info) != 0)
        return std::nullopt;
    return LinkStatus{
        S_ISLNK(info.st_mode),
        {static_cast<std::int64_t>(info.st_dev), static_cast<std::uint64_t>(info.st_ino)}};
}

std::optional<std::string> PosixFileSystem::readSymbolicLink(const std::string& path) const {
    char buffer[PATH_MAX];
    const ssize_t length = ::readlink(path.c_str(), buffer, sizeof buffer);
    if (length < 0 || static_cast<std::size_t>(length) == sizeof buffer)
        return std::nullopt;
    return std::string(buffer, static_cast<std::size_t>(length));
}

std::optional<std::string> PosixFileSystem::resolvedPath(const std::string& path) const {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    const std::filesystem::path resolved =
        error ? absolute : std::filesystem::weakly_canonical(absolute, error);
    if (error)
        return std::nullopt;
    return PathText::standardized(resolved.string());
}

std::vector<DirectoryEntry> PosixFileSystem::list(const std::string& directory) const {
    std::vector<DirectoryEntry> entries;
    DIR* handle = ::opendir(directory.c_str());
    if (!handle)
        return entries;
    while (const dirent* entry = ::readdir(handle)) {
        const std::string name = entry->d_name;
        if (name == "." || name == "..")
            continue;
        bool isDirectory = entry->d_type == DT_DIR;
        if (entry->d_type == DT_UNKNOWN) {
            struct stat info {};
            const std::string path = directory + "/" + name;
            isDirectory = ::lstat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
        }
        entries.push_back({name, isDirectory});
    }
    ::closedir(handle);
    return entries;
}

std::optional<std::string> PosixFileSystem::readFile(const std::string& path) const {
    return readUpTo(path, 0, SIZE_MAX);
}

std::optional<std::string> PosixFileSystem::readAt(const std::string& path, std::size_t offset,
                                                   std::size_t maxBytes) const {
    return readUpTo(path, offset, maxBytes);
}

void PosixFileSystem::writeFileAtomically(const std::string& path, std::string_view bytes) {
    std::string temporary;
    int fd = -1;
    do {
        temporary = temporaryNameBeside(path);
        fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    } while (fd < 0 && errno == EEXIST);
    if (fd < 0)
        fail("Cannot write a file in the folder", parentOf(path), errno);

    FileDescriptor file(fd);
    const bool written = writeAll(file.get(), bytes) && ::fsync(file.get()) == 0;
    const int writeError = errno;
    const bool closed = ::close(file.release()) == 0;
    if (!written || !closed) {
        ::unlink(temporary.c_str());
        fail("Cannot write", path, written ? errno : writeError);
    }
    if (::rename(temporary.c_str(), path.c_str()) != 0) {
        const int renameError = errno;
        ::unlink(temporary.c_str());
        fail("Cannot replace", path, renameError);
    }
    // The rename is durable only once the folder itself is on disk.
    FileDescriptor folder(::open(parentOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.get() >= 0)
        ::fsync(folder.get());
}

void PosixFileSystem::writeNewPrivateFile(const std::string& path, std::string_view bytes) {
    FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (file.get() < 0)
        fail("Cannot create", path, errno);
    if (!writeAll(file.get(), bytes)) {
        const int error = errno;
        ::unlink(path.c_str());
        fail("Cannot write", path, error);
    }
}

void PosixFileSystem::createDirectories(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (error)
        throw Error("Cannot create the folder " + path + ": " + error.message());
}

void PosixFileSystem::copyFile(const std::string& from, const std::string& to) {
    const auto failCopy = [&](int error) {
        throw Error("Cannot copy " + from + " to " + to + ": " + std::strerror(error));
    };
    struct stat info {};
    const FileDescriptor source = openRegularFile(from, info);
    if (source.get() < 0)
        failCopy(errno == EINVAL ? ENOTSUP : errno);
    FileDescriptor destination(
        ::open(to.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, info.st_mode & 0777));
    struct stat destinationInfo {};
    if (destination.get() < 0 || ::fstat(destination.get(), &destinationInfo) != 0)
        failCopy(errno);
    // Emptying the file that is also the source would lose it.
    if (destinationInfo.st_dev == info.st_dev && destinationInfo.st_ino == info.st_ino)
        failCopy(EEXIST);
    if (::ftruncate(destination.get(), 0) != 0)
        failCopy(errno);
    char buffer[65536];
    for (;;) {
        const ssize_t got = ::read(source.get(), buffer, sizeof buffer);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0 || (got > 0 && !writeAll(destination.get(), {buffer, std::size_t(got)})))
            failCopy(errno);
        if (got == 0)
            break;
    }
    if (::close(destination.release()) != 0)
        failCopy(errno);
}

void PosixFileSystem::copyDirectory(const std::string& from, const std::string& to) {
    std::error_code error;
    std::filesystem::copy(from, to, std::filesystem::copy_options::recursive, error);
    if (error)
        throw Error("Cannot copy " + from + " to " + to + ": " + error.message());
}

void PosixFileSystem::removeFile(const std::string& path) {
    if (::unlink(path.c_str()) != 0)
        fail("Cannot remove", path, errno);
}

std::unique_ptr<FileLock> PosixFileSystem::lockExclusive(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd < 0)
        fail("Cannot open the lock file", path, errno);
    while (::flock(fd, LOCK_EX) != 0) {
        if (errno != EINTR) {
            const int error = errno;
            ::close(fd);
            fail("Cannot lock", path, error);
        }
    }
    return std::make_unique<FlockLock>(fd);
}

} // namespace tidewell
