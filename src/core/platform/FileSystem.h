#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tidewell {

struct FileIdentity {
    std::int64_t device = 0;
    std::uint64_t inode = 0;

    bool operator==(const FileIdentity&) const = default;
};

struct DirectoryEntry {
    std::string name;
    bool isDirectory = false; // a real directory: a symbolic link to one is not
};

// What a path names itself, without following a symbolic link at its end.
struct LinkStatus {
    bool isSymbolicLink = false;
    FileIdentity identity;
};

// Which content a file name leads to: writers that replace the file by a rename give it a
// new inode, and writes in place change its size or times.
struct FileVersion {
    FileIdentity identity;
    std::int64_t size = 0;
    std::int64_t modifiedNanoseconds = 0;
    std::int64_t changedNanoseconds = 0;

    bool operator==(const FileVersion&) const = default;
};

// Held while an exclusive advisory lock is taken; destruction releases it.
class FileLock {
public:
    virtual ~FileLock() = default;
};

// Every file operation of core goes through this interface (paths are plain text, as the
// items file stores them). Operations that change something throw Error with a sentence
// naming the path and the reason; queries answer "no" instead of failing.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    virtual std::string currentDirectory() const = 0;
    virtual bool exists(const std::string& path) const = 0;      // follows symbolic links
    virtual bool isDirectory(const std::string& path) const = 0; // follows symbolic links
    // Follows symbolic links; a FIFO, socket or device is no regular file.
    virtual bool isRegularFile(const std::string& path) const = 0;
    // As exists, but no value when the answer takes longer than the limit, as it does on a
    // network mount that stopped answering.
    virtual std::optional<bool> existsWithin(const std::string& path,
                                             std::chrono::milliseconds limit) const = 0;
    // Absolute, with ".", ".." and every symbolic link resolved as the kernel resolves them;
    // the part from the first missing component on is only tidied. None when it fails.
    virtual std::optional<std::string> resolvedPath(const std::string& path) const = 0;
    // Follows symbolic links; none when the path cannot be examined.
    virtual std::optional<FileVersion> fileVersion(const std::string& path) const = 0;
    virtual std::optional<LinkStatus> linkStatus(const std::string& path) const = 0;
    virtual std::optional<std::string> readSymbolicLink(const std::string& path) const = 0;
    // Entries other than "." and "..", in no particular order; empty when unreadable.
    virtual std::vector<DirectoryEntry> list(const std::string& directory) const = 0;

    // Only regular files are read: a FIFO, socket or device reads as no value, at once.
    virtual std::optional<std::string> readFile(const std::string& path) const = 0;
    // Up to maxBytes from the offset on: fewer at the end of the file.
    virtual std::optional<std::string> readAt(const std::string& path, std::size_t offset,
                                              std::size_t maxBytes) const = 0;

    // Replaces the file in one rename, after the new bytes and the folder are on disk.
    virtual void writeFileAtomically(const std::string& path, std::string_view bytes) = 0;
    // Creates a file that must not exist yet, readable and writable by its owner only.
    virtual void writeNewPrivateFile(const std::string& path, std::string_view bytes) = 0;
    virtual void createDirectories(const std::string& path) = 0;
    virtual void copyFile(const std::string& from, const std::string& to) = 0;
    virtual void copyDirectory(const std::string& from, const std::string& to) = 0;
    virtual void removeFile(const std::string& path) = 0;
    // Blocks until the lock on the file (created if absent) is ours.
    virtual std::unique_ptr<FileLock> lockExclusive(const std::string& path) = 0;
};

} // namespace tidewell
