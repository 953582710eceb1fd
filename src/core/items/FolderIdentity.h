#pragma once

#include "core/platform/FileSystem.h"

#include <string>
#include <unordered_map>

namespace tidewell {

// Normalised paths and folder identities, remembered for the length of one operation on
// the items file: the same folder is looked up several times per operation, and every
// lookup costs system calls.
class FolderIdentity {
public:
    explicit FolderIdentity(const FileSystem& files) : files_(files) {}

    // Absolute, standardised, with symbolic links resolved in every component that exists.
    const std::string& normalizedPath(const std::string& path);
    // "ino:<device>:<inode>" when the path can be examined, else "path:<normalised path>".
    // Two paths reaching one folder through different links or texts get the same one.
    const std::string& identifier(const std::string& path);

private:
    const FileSystem& files_;
    std::unordered_map<std::string, std::string> normalized_;
    std::unordered_map<std::string, std::string> identifiers_;
};

} // namespace tidewell
