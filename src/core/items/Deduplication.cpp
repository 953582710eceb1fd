#include "core/items/Deduplication.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace tidewell {
namespace {

void merge(NotchItem& kept, const NotchItem& newcomer) {
    kept.isFavorite = kept.isFavorite || newcomer.isFavorite;
    const bool isNewer = newcomer.lastOpenedAt > kept.lastOpenedAt;
    if (newcomer.lastOpenedAt >= kept.lastOpenedAt)
        kept.lastOpenedAt = newcomer.lastOpenedAt;
    if (!isNewer)
        return;
    kept.name = newcomer.name;
    kept.initials = newcomer.initials;
    kept.tintHex = newcomer.tintHex;
    if (newcomer.iconPath)
        kept.iconPath = newcomer.iconPath;
    if (newcomer.sortOrder)
        kept.sortOrder = newcomer.sortOrder;
    if (!newcomer.launchCommand.empty())
        kept.launchCommand = newcomer.launchCommand;
}

} // namespace

std::vector<NotchItem> deduplicated(std::vector<NotchItem> items, FolderIdentity& folders) {
    const auto isOlder = [](const NotchItem& a, const NotchItem& b) {
        return a.createdAt < b.createdAt;
    };
    // Saved files are in order already; sorting them again only moves records around.
    if (!std::is_sorted(items.begin(), items.end(), isOlder))
        std::stable_sort(items.begin(), items.end(), isOlder);
    std::vector<NotchItem> result;
    result.reserve(items.size());
    // The identifiers stay in `folders` for its lifetime, so that they need no copies here.
    std::unordered_map<std::string_view, std::size_t> indexByFolder;
    indexByFolder.reserve(items.size());
    for (NotchItem& newcomer : items) {
        if (const std::string& normalized = folders.normalizedPath(newcomer.path);
            normalized != newcomer.path)
            newcomer.path = normalized;
        const auto [place, isFirst] =
            indexByFolder.try_emplace(folders.identifier(newcomer.path), result.size());
        if (isFirst)
            result.push_back(std::move(newcomer));
        else
            merge(result[place->second], newcomer);
    }
    return result;
}

} // namespace tidewell
