#pragma once

#include <string>

namespace tidewell::testing {

// A fresh folder under the system's temporary folder, removed with everything in it
// (read-only parts included) when the object goes away.
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

} // namespace tidewell::testing
