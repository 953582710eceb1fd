#include "core/items/Deduplication.h"

#include "core/items/TextIndex.h"

#include <algorithm>
#include <optional>

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
    // One normalised path names one folder; the folder's identity, which takes a look at the
    // disk, is needed only for paths that may have changed since they were stored. The keys
    // are the kept records' paths and the identifiers that stay in `folders`: no copies. Kept
    // records move up in place over merged ones and then stay where they are.
    TextIndex indexByPath(items.size());
    TextIndex indexByFolder(items.size());
    std::size_t keptCount = 0;
    for (NotchItem& newcomer : items) {
        const bool isCurrent = folders.isStoredPathCurrent(newcomer.path);
        if (!isCurrent) {
            if (const std::string& normalized = folders.normalizedPath(newcomer.path);
                normalized != newcomer.path)
                newcomer.path = normalized;
        }
        const std::string* identifier = isCurrent ? nullptr : &folders.identifier(newcomer.path);
        std::optional<std::size_t> kept = indexByPath.find(newcomer.path);
        if (!kept && identifier)
            kept = indexByFolder.find(*identifier);
        if (kept) {
            merge(items[*kept], newcomer);
            continue;
        }
        NotchItem& place = items[keptCount];
        if (&place != &newcomer)
            place = std::move(newcomer);
        indexByPath.insert(place.path, keptCount);
        if (identifier)
            indexByFolder.insert(*identifier, keptCount);
        ++keptCount;
    }
    items.erase(items.begin() + static_cast<std::ptrdiff_t>(keptCount), items.end());
    return items;
}

} // namespace tidewell
