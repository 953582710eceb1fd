#pragma once

#include <unistd.h>
#include <utility>

namespace tidewell {

// Owns an open descriptor and closes it when it goes away; -1 owns nothing.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int fd) : fd_(fd) {}
    FileDescriptor(FileDescriptor&& other) noexcept : fd_(other.release()) {}
    ~FileDescriptor() {
        if (fd_ >= 0)
            ::close(fd_);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    FileDescriptor& operator=(FileDescriptor&&) = delete;

    int get() const { return fd_; }
    int release() { return std::exchange(fd_, -1); }

private:
    int fd_ = -1;
};

} // namespace tidewell
