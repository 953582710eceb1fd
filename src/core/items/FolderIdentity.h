#pragma once

#include "core/platform/FileSystem.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tidewell {

// Normalised paths and folder identities, remembered for the length of one operation on
// the items file. Symbolic links are resolved here, one component at a time as the kernel
// does, so that the folders that many records share are examined once: an operation on a
// thousand records then costs about one system call per record.
class FolderIdentity {
public:
    explicit FolderIdentity(const FileSystem& files) : files_(files) {}

    // Absolute, standardised, with symbolic links resolved in every component that exists;
    // the components from the first one that does not exist are kept as they are.
    const std::string& normalizedPath(const std::string& path);
    // "ino:<device>:<inode>" when the path leads to something that exists, else
    // "path:<normalised path>". Paths reaching one folder through different links or texts
    // get the same identifier.
    const std::string& identifier(const std::string& path);

private:
    struct Resolution {
        std::string path;
        std::optional<FileIdentity> identity; // none when something on the way is missing
        std::string identifier;
    };

    const Resolution& lookUp(const std::string& path);
    const Resolution& resolve(const std::string& standardizedPath);
    Resolution resolveChild(const Resolution& parent, std::string_view name, int linkDepth);
    Resolution followLink(const Resolution& parent, const std::string& link, int linkDepth);
    std::string standardizedAbsolute(const std::string& path) const;

    const FileSystem& files_;
    std::unordered_map<std::string, Resolution> resolutions_;
};

} // namespace tidewell
