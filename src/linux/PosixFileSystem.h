#pragma once

#include "core/platform/FileSystem.h"

namespace tidewell {

// The real file system through POSIX calls.
class PosixFileSystem : public FileSystem {
public:
    std::string currentDirectory() const override;
    bool exists(const std::string& path) const override;
    bool isDirectory(const std::string& path) const override;
    bool isRegularFile(const std::string& path) const override;
    std::optional<bool> existsWithin(const std::string& path,
                                     std::chrono::milliseconds limit) const override;
    std::optional<std::string> resolvedPath(const std::string& path) const override;
    std::optional<FileVersion> fileVersion(const std::string& path) const override;
    std::optional<LinkStatus> linkStatus(const std::string& path) const override;
    std::optional<std::string> readSymbolicLink(const std::string& path) const override;
    std::vector<DirectoryEntry> list(const std::string& directory) const override;

    std::optional<std::string> readFile(const std::string& path) const override;
    std::optional<std::string> readAt(const std::string& path, std::size_t offset,
                                      std::size_t maxBytes) const override;

    void writeFileAtomically(const std::string& path, std::string_view bytes) override;
    void writeNewPrivateFile(const std::string& path, std::string_view bytes) override;
    void createDirectories(const std::string& path) override;
    void copyFile(const std::string& from, const std::string& to) override;
    void copyDirectory(const std::string& from, const std::string& to) override;
    void removeFile(const std::string& path) override;
    std::unique_ptr<FileLock> lockExclusive(const std::string& path) override;
};

} // namespace tidewell
