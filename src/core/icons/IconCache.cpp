#include "core/icons/IconCache.h"

#include "core/platform/Error.h"
#include "core/platform/PathContainment.h"
#include "core/platform/PathText.h"

#include <utility>

namespace tidewell {

IconCache::IconCache(FileSystem& files, std::string directory)
    : files_(files), directory_(std::move(directory)) {}

namespace {

std::string standardizedAbsolute(const FileSystem& files, const std::string& path) {
    return PathText::standardized(PathText::absolute(path, files.currentDirectory()));
}

} // namespace

bool IconCache::isManaged(const std::string& path) const {
    return isInsideFolder(files_, path, directory_);
}

std::optional<std::string> IconCache::cache(const std::optional<std::string>& sourcePath,
                                            const Uuid& itemID) const {
    if (!sourcePath || sourcePath->empty())
        return std::nullopt;
    if (isManaged(*sourcePath))
        return sourcePath;
    const std::string source = standardizedAbsolute(files_, *sourcePath);
    if (!files_.exists(source))
        return std::nullopt;

    std::string extension = PathText::lowercasedAscii(PathText::extension(source));
    if (extension.empty())
        extension = "png";
    const std::string directory = standardizedAbsolute(files_, directory_);
    const std::string destination = directory + "/" + itemID.text() + "." + extension;
    try {
        files_.createDirectories(directory);
        if (files_.exists(destination))
            files_.removeFile(destination);
        files_.copyFile(source, destination);
    } catch (const Error&) {
        // The caller keeps the icon it had; a failed copy changes nothing it can see.
        return std::nullopt;
    }
    return destination;
}

} // namespace tidewell
