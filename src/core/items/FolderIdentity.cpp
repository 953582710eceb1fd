#include "core/items/FolderIdentity.h"

#include "core/platform/PathText.h"

#include <charconv>
#include <cstdint>
#include <iterator>

namespace tidewell {
namespace {

// As many links as the kernel follows in one lookup before it reports a loop.
constexpr int maximumLinkDepth = 40;

// Longer than a writer takes from examining the folders to writing the file (it looks for an
// icon in between), so that a change made meanwhile is not taken for one the write saw.
constexpr std::int64_t storedPathsSettleNanoseconds = 5'000'000'000;

std::string parentOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string joined(const std::string& directory, std::string_view name) {
    return directory == "/" ? "/" + std::string(name) : directory + "/" + std::string(name);
}

std::string identifierOf(const std::string& path, const std::optional<FileIdentity>& identity) {
    if (!identity)
        return "path:" + path;
    // The device number is written as a signed 32-bit value, as earlier files have it.
    char number[24];
    std::string text;
    text.reserve(40);
    text += "ino:";
    text.append(
        number,
        std::to_chars(number, std::end(number), static_cast<std::int32_t>(identity->device)).ptr);
    text += ':';
    text.append(number, std::to_chars(number, std::end(number), identity->inode).ptr);
    return text;
}

} // namespace

const std::string& FolderIdentity::normalizedPath(const std::string& path) {
    return lookUp(path).path;
}

const std::string& FolderIdentity::identifier(const std::string& path) {
    return lookUp(path).identifier;
}

// Stored paths are normalised already: they are found as they are, without a copy.
const FolderIdentity::Resolution& FolderIdentity::lookUp(const std::string& path) {
    if (!path.starts_with('/') || !PathText::isStandardized(path))
        return resolve(standardizedAbsolute(path));
    const auto known = resolutions_.find(path);
    return known != resolutions_.end() ? known->second : resolve(path);
}

const FolderIdentity::Resolution& FolderIdentity::resolve(const std::string& standardizedPath) {
    const auto known = resolutions_.find(standardizedPath);
    if (known != resolutions_.end())
        return known->second;
    Resolution resolution;
    if (standardizedPath == "/") {
        const auto root = files_.linkStatus("/");
        resolution = {"/", root ? std::optional(root->identity) : std::nullopt};
    } else {
        const Resolution& parent = resolve(parentOf(standardizedPath));
        resolution = resolveChild(parent, PathText::lastComponent(standardizedPath), 0);
    }
    resolution.identifier = identifierOf(resolution.path, resolution.identity);
    return resolutions_[standardizedPath] = std::move(resolution);
}

FolderIdentity::Resolution FolderIdentity::resolveChild(const Resolution& parent,
                                                        std::string_view name, int linkDepth) {
    std::string candidate = joined(parent.path, name);
    if (!parent.identity)
        return {std::move(candidate), std::nullopt};
    const auto status = files_.linkStatus(candidate);
    if (!status)
        return {std::move(candidate), std::nullopt};
    if (!status->isSymbolicLink)
        return {std::move(candidate), status->identity};
    Resolution target = followLink(parent, candidate, linkDepth + 1);
    // A link that leads nowhere stays as it is, as does everything below it.
    if (!target.identity)
        return {std::move(candidate), std::nullopt};
    return target;
}

// Walks the link's target from the folder holding the link; ".." steps up from the real
// folder reached so far, which is what the kernel does.
FolderIdentity::Resolution FolderIdentity::followLink(const Resolution& parent,
                                                      const std::string& link, int linkDepth) {
    const auto target = files_.readSymbolicLink(link);
    if (!target || linkDepth > maximumLinkDepth)
        return {link, std::nullopt};
    Resolution current = target->starts_with('/') ? resolve("/") : parent;
    for (const std::string_view component : PathText::split(*target, '/')) {
        if (!current.identity)
            break;
        if (component.empty() || component == ".")
            continue;
        current = component == ".." ? resolve(parentOf(current.path))
                                    : resolveChild(current, component, linkDepth);
    }
    return current;
}

// What was found for one write holds for any later one (a folder unchanged since before the
// first is unchanged since before the second), so that a file replaced by another writer
// while the lock was awaited brings no new look at the disk for the folders known already.
void FolderIdentity::trustPathsStoredAt(std::int64_t writtenNanoseconds) {
    if (storedAt_ && writtenNanoseconds < *storedAt_) {
        unchangedParents_.clear();
        lastParent_ = nullptr;
    }
    storedAt_ = writtenNanoseconds;
}

// Many records share a parent: it is looked at once, and only the last component of each
// path needs checking here.
bool FolderIdentity::isStoredPathCurrent(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (!storedAt_ || slash == 0 || slash == std::string::npos)
        return false;
    const std::string_view name = std::string_view(path).substr(slash + 1);
    if (name.empty() || name == "." || name == "..")
        return false;
    const std::string_view parent(path.data(), slash);
    if (lastParent_ && lastParent_->first == parent)
        return lastParent_->second;
    auto known = unchangedParents_.find(parent);
    if (known == unchangedParents_.end())
        known = unchangedParents_.emplace(parent, isParentUnchanged(parent)).first;
    // Records of one parent tend to follow each other: the last answer is kept at hand.
    lastParent_ = &*known;
    return known->second;
}

// The parent is resolved as every path is, so that a link that appeared above it counts.
bool FolderIdentity::isParentUnchanged(std::string_view parent) {
    if (!parent.starts_with('/') || !PathText::isStandardized(parent))
        return false;
    const Resolution& resolved = resolve(std::string(parent));
    if (!resolved.identity || resolved.path != parent)
        return false;
    const auto version = files_.fileVersion(resolved.path);
    return version && version->changedNanoseconds < *storedAt_ - storedPathsSettleNanoseconds;
}

std::string FolderIdentity::standardizedAbsolute(const std::string& path) const {
    if (path.starts_with('/'))
        return PathText::standardized(path);
    return PathText::standardized(PathText::absolute(path, files_.currentDirectory()));
}

} // namespace tidewell
