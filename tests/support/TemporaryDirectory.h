#pragma once

#include <optional>
#include <string>

namespace tidewell::testing {

// A fresh temporary folder, removed with all it holds, read-only parts too, when it goes.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::string& path() const { return path_; }
    // Creates parent folders as needed and writes the bytes; returns the file's path.
    std::string write(const std::string& relativePath, const std::string& bytes = "") const;
    std::string makeFolder(const std::string& relativePath) const;

private:
    std::string path_;
};

// The file's bytes; none when it cannot be opened.
std::optional<std::string> readFile(const std::string& path);

} // namespace tidewell::testing
