#pragma once

#include "core/platform/FileSystem.h"

#include <cstdint>
#include <functional>
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
    // Moved, never copied: it keeps a pointer into its own table.
    FolderIdentity(const FolderIdentity&) = delete;
    FolderIdentity(FolderIdentity&&) = default;

    // Absolute, standardised, with symbolic links resolved in every component that exists;
    // the components from the first one that does not exist are kept as they are.
    const std::string& normalizedPath(const std::string& path);
    // "ino:<device>:<inode>" when the path leads to something that exists, else
    // "path:<normalised path>". Paths reaching one folder through different links or texts
    // get the same identifier.
    const std::string& identifier(const std::string& path);

    // Paths read from an items file written at the given time (its modification time) were
    // normalised and told apart from each other by that write.
    void trustPathsStoredAt(std::int64_t writtenNanoseconds);
    // True for a stored path that still names what it named then, so that it needs no
    // examining: it is standardised and its parent is a real folder whose entries have not
    // changed since shortly before the write. Only folders reached through a bind mount (or
    // files through a hard link) can then share its folder under another path.
    bool isStoredPathCurrent(const std::string& path);

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
    bool isParentUnchanged(std::string_view parent);

    // Heterogeneous lookup, so that the parents of stored paths are found without copies.
    struct TextHash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    const FileSystem& files_;
    std::unordered_map<std::string, Resolution> resolutions_;
    std::optional<std::int64_t> storedAt_;
    std::unordered_map<std::string, bool, TextHash, std::equal_to<>> unchangedParents_;
    const std::pair<const std::string, bool>* lastParent_ = nullptr;
};

} // namespace tidewell
