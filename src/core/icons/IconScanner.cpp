#include "core/icons/IconScanner.h"

#include "core/icons/ImageSize.h"
#include "core/platform/PathText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

namespace tidewell {
namespace {

constexpr std::array<std::string_view, 9> extensions = {"png",  "jpg", "jpeg", "heic", "tiff",
                                                        "webp", "ico", "icns", "svg"};
constexpr std::array<std::string_view, 17> skippedDirectoryNames = {
    "node_modules", ".git",        ".build", "build",    "dist",  "out",
    "pods",         "deriveddata", "vendor", "venv",     ".venv", "__pycache__",
    "target",       ".next",       ".turbo", "coverage", ".cache"};
constexpr std::array<std::string_view, 9> preferredDirectoryNames = {
    "assets",          "resources",         "static", "public", "icons", "images", "img",
    "assets.xcassets", "appicon.appiconset"};
constexpr std::array<std::string_view, 5> nameKeywords = {"appicon", "icon", "favicon", "logo",
                                                          "mark"};
// Bundles are opaque to the walk: a macOS application or framework copied into a project
// is full of icons that are not the project's own.
constexpr std::array<std::string_view, 8> packageExtensions = {
    "app", "bundle", "framework", "plugin", "kext", "xcodeproj", "xcworkspace", "playground"};

constexpr std::size_t maximumEntries = 2000;
constexpr int firstIgnoredDepth = 5;
constexpr double squareTolerance = 0.08;

template <std::size_t count>
bool isOneOf(const std::array<std::string_view, count>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

std::string lowercased(std::string_view text) {
    return PathText::lowercasedAscii(text);
}

std::string joined(const std::string& directory, const std::string& name) {
    return directory == "/" ? "/" + name : directory + "/" + name;
}

std::vector<std::string_view> components(std::string_view path) {
    std::vector<std::string_view> result;
    std::size_t start = 0;
    while (start < path.size()) {
        std::size_t end = path.find('/', start);
        if (end == std::string_view::npos)
            end = path.size();
        if (end > start)
            result.push_back(path.substr(start, end - start));
        start = end + 1;
    }
    return result;
}

// One depth-first walk below a project folder, keeping the best candidate met so far.
class IconWalk {
public:
    IconWalk(const IconScanner& scanner, const FileSystem& files, std::string root)
        : scanner_(scanner), files_(files), root_(std::move(root)) {}

    std::optional<std::string> bestIcon() {
        visitChildren(root_, 1);
        if (!best_)
            return std::nullopt;
        return best_->path;
    }

private:
    struct Candidate {
        int score = 0;
        std::string path;
    };

    void visitChildren(const std::string& directory, int depth) {
        std::vector<DirectoryEntry> entries = files_.list(directory);
        std::sort(entries.begin(), entries.end(),
                  [](const auto& a, const auto& b) { return a.name < b.name; });
        for (const DirectoryEntry& entry : entries) {
            if (entry.name.starts_with("."))
                continue;
            if (++visited_ > maximumEntries) {
                isFinished_ = true;
                return;
            }
            if (depth >= firstIgnoredDepth)
                continue;
            const std::string path = joined(directory, entry.name);
            const std::string name = lowercased(entry.name);
            // A link to a directory is no directory here and is not followed, so that a
            // link to an ancestor cannot lead the walk in circles.
            if (entry.isDirectory && isOneOf(skippedDirectoryNames, name))
                continue;
            judge(path, name, depth);
            if (entry.isDirectory && !isOneOf(packageExtensions, PathText::extension(name)))
                visitChildren(path, depth + 1);
            if (isFinished_)
                return;
        }
    }

    void judge(const std::string& path, const std::string& name, int depth) {
        const std::string extension = PathText::extension(name);
        const std::string base =
            extension.empty() ? name : name.substr(0, name.size() - extension.size() - 1);
        const bool hasKeyword = std::any_of(nameKeywords.begin(), nameKeywords.end(),
                                            [&](auto keyword) { return contains(base, keyword); });
        // A FIFO, socket or device named like an icon is none, and opening it could block.
        if (!hasKeyword || !scanner_.isDrawable(extension) || !files_.isRegularFile(path))
            return;
        int score = 100 - 8 * depth;
        if (base == "appicon" || base == "icon")
            score += 30;
        if (contains(base, "favicon"))
            score += 20;
        if (extension == "icns")
            score += 18;
        if (scanner_.isInPreferredDirectory(path, root_))
            score += 35;
        if (scanner_.isSquare(path))
            score += 45;
        if (!best_ || score > best_->score)
            best_ = Candidate{score, path};
    }

    const IconScanner& scanner_;
    const FileSystem& files_;
    const std::string root_;
    std::size_t visited_ = 0;
    bool isFinished_ = false;
    std::optional<Candidate> best_;
};

} // namespace

std::optional<std::string> IconScanner::bestIcon(const std::string& folder) const {
    const std::string root =
        PathText::standardized(PathText::absolute(folder, files_.currentDirectory()));
    if (!files_.exists(root))
        return std::nullopt;
    if (!files_.isDirectory(root)) {
        if (isDrawable(lowercased(PathText::extension(root))) && files_.isRegularFile(root))
            return root;
        return std::nullopt;
    }
    return IconWalk(*this, files_, root).bestIcon();
}

bool IconScanner::isDrawable(std::string_view extension) const {
    return isOneOf(extensions, extension) && formats_.canDecode(extension);
}

bool IconScanner::isInPreferredDirectory(const std::string& file,
                                         const std::string& projectRoot) const {
    const std::string standardizedFile = PathText::standardized(file);
    const auto fileComponents = components(standardizedFile);
    const std::size_t rootCount = components(PathText::standardized(projectRoot)).size();
    // The file's own name is not a directory; the root and what lies above it never count.
    for (std::size_t index = rootCount; index + 1 < fileComponents.size(); ++index)
        if (isOneOf(preferredDirectoryNames, lowercased(fileComponents[index])))
            return true;
    return false;
}

bool IconScanner::isSquare(const std::string& file) const {
    const auto size = imageSizeOfFile([&](std::size_t offset, std::size_t length) {
        return files_.readAt(file, offset, length);
    });
    if (!size || size->width <= 0 || size->height <= 0)
        return false;
    return std::abs(size->width - size->height) / std::max(size->width, size->height) <
           squareTolerance;
}

} // namespace tidewell
