#include "core/store/ItemStore.h"

#include "core/notify/NotificationNames.h"
#include "core/platform/Error.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <iterator>
#include <limits>
#include <tuple>

namespace tidewell {
namespace {

// Unplaced favourites sort after every placed one.
std::int64_t placeKey(const NotchItem& item) {
    return item.sortOrder.value_or(std::numeric_limits<std::int64_t>::max());
}

bool hasId(const std::vector<Uuid>& ids, const Uuid& id) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

std::vector<NotchItem>::iterator findId(std::vector<NotchItem>& items, const Uuid& id) {
    return std::find_if(items.begin(), items.end(),
                        [&id](const NotchItem& item) { return item.id == id; });
}

// Numbers the favourites in `order` from 0, matched by id; ids not in `items` are skipped.
void renumber(std::vector<NotchItem>& items, const std::vector<NotchItem>& order) {
    for (std::size_t index = 0; index < order.size(); ++index)
        if (const auto found = findId(items, order[index].id); found != items.end())
            found->sortOrder = static_cast<std::int64_t>(index);
}

// Takes the added favourites out of `favorites` and puts them, in the order they were
// added, directly before the target. False when the target is not among the others.
bool placeBefore(std::vector<NotchItem>& favorites, const std::vector<Uuid>& added,
                 const Uuid& target) {
    std::vector<NotchItem> moved;
    for (const Uuid& id : added)
        if (const auto found = findId(favorites, id); found != favorites.end())
            moved.push_back(*found);
    std::erase_if(favorites, [&added](const NotchItem& item) { return hasId(added, item.id); });
    const auto position = findId(favorites, target);
    if (position == favorites.end())
        return false;
    favorites.insert(position, moved.begin(), moved.end());
    return true;
}

// Applies the change to the file's current list rather than saving this store's copy, so
// that what another process wrote since the last reload is kept. A failed write is dropped.
void saveChange(ItemDatabase& database,
                const std::function<void(std::vector<NotchItem>&)>& change) {
    try {
        database.modify([&change](std::vector<NotchItem>& items) {
            change(items);
            return true;
        });
    } catch (const Error&) {
    }
}

void saveOrder(ItemDatabase& database, const std::vector<NotchItem>& order) {
    saveChange(database, [&order](std::vector<NotchItem>& items) { renumber(items, order); });
}

} // namespace

ItemStore::ItemStore(Services services) : services_(services), items_(services_.database.load()) {
    const auto scheduleReload = [this, alive = std::weak_ptr<bool>(isAlive_)] {
        services_.queue.post([this, alive] {
            if (alive.lock())
                reload();
        });
    };
    observer_ = services_.localCenter.addObserver(notchItemsChanged, scheduleReload);
    distributedObserver_ =
        services_.distributedCenter.addObserver(notchItemsChanged, scheduleReload);
}

ItemStore::~ItemStore() {
    services_.localCenter.removeObserver(observer_);
    services_.distributedCenter.removeObserver(distributedObserver_);
}

std::vector<NotchItem> ItemStore::favorites() const {
    std::vector<NotchItem> favorites;
    std::copy_if(items_.begin(), items_.end(), std::back_inserter(favorites),
                 [](const NotchItem& item) { return item.isFavorite; });
    std::stable_sort(
        favorites.begin(), favorites.end(), [](const NotchItem& a, const NotchItem& b) {
            return std::tuple(placeKey(a), a.createdAt) < std::tuple(placeKey(b), b.createdAt);
        });
    return favorites;
}

void ItemStore::add(const std::string& path, bool favorite) {
    try {
        services_.database.upsert({.path = path, .favorite = favorite});
    } catch (const Error&) {
    }
    reload();
}

void ItemStore::add(const std::vector<std::string>& paths, const std::optional<Uuid>& before) {
    std::vector<Uuid> added;
    for (const std::string& path : paths) {
        try {
            added.push_back(services_.database.upsert({.path = path, .favorite = true}).id);
        } catch (const Error&) {
        }
    }
    reload();
    if (!before || added.empty())
        return;
    std::vector<NotchItem> order = favorites();
    if (!placeBefore(order, added, *before))
        return;
    saveOrder(services_.database, order);
    reload();
}

void ItemStore::reorderFavorite(const Uuid& id, const Uuid& before) {
    std::vector<NotchItem> order = favorites();
    const auto from = findId(order, id);
    const auto to = findId(order, before);
    if (from == order.end() || to == order.end() || from == to)
        return;
    // Rotating the range between them puts the moved item where the target was.
    if (from < to)
        std::rotate(from, from + 1, to + 1);
    else
        std::rotate(to, from, from + 1);
    renumber(items_, order);
    itemsChanged.emit();
}

void ItemStore::saveFavoriteOrder() {
    const std::vector<NotchItem> order = favorites();
    saveOrder(services_.database, order);
    reload();
}

void ItemStore::update(const Uuid& id, const std::function<void(NotchItem&)>& edit) {
    const auto found = findId(items_, id);
    if (found == items_.end())
        return;
    edit(*found);
    itemsChanged.emit();
    saveChange(services_.database, [this, &id, &edit](std::vector<NotchItem>& items) {
        if (const auto inFile = findId(items, id); inFile != items.end())
            edit(*inFile);
        else
            items = items_; // removed elsewhere while the user still edits it: keep it
    });
}

void ItemStore::unpin(const Uuid& id) {
    if (findId(items_, id) == items_.end())
        return;
    saveChange(services_.database, [&id](std::vector<NotchItem>& items) {
        for (NotchItem& item : items) {
            if (item.id == id) {
                item.isFavorite = false;
                item.sortOrder.reset();
            }
        }
    });
    reload();
}

void ItemStore::remove(const Uuid& id) {
    saveChange(services_.database, [&id](std::vector<NotchItem>& items) {
        std::erase_if(items, [&id](const NotchItem& item) { return item.id == id; });
    });
    reload();
}

void ItemStore::open(const NotchItem& item) {
    services_.workspace.openFolder(item.path);
    try {
        services_.database.touch(item.id);
    } catch (const Error&) {
    }
    reload();
}

void ItemStore::reload() {
    setItems(services_.database.load());
}

void ItemStore::setItems(std::vector<NotchItem> items) {
    items_ = std::move(items);
    itemsChanged.emit();
}

} // namespace tidewell
