#pragma once

#include "core/items/ItemDatabase.h"
#include "core/observe/Signal.h"
#include "core/platform/MainQueue.h"
#include "core/platform/Workspace.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tidewell {

// The application's one in-memory copy of the items, which every view reads. It writes
// through the item database and reloads whenever any process saves. It also holds the
// rules for the order of pinned items. Failures are dropped: the next reload shows what
// the file holds.
class ItemStore {
public:
    struct Services {
        ItemDatabase& database;
        NotificationCenter& localCenter;
        DistributedNotificationCenter& distributedCenter;
        MainQueue& queue;
        Workspace& workspace;
    };

    explicit ItemStore(Services services);
    ~ItemStore();
    ItemStore(const ItemStore&) = delete;
    ItemStore& operator=(const ItemStore&) = delete;

    const std::vector<NotchItem>& items() const { return items_; }
    // Pinned items: placed ones by sort order, then unplaced ones oldest first.
    std::vector<NotchItem> favorites() const;

    void add(const std::string& path, bool favorite);
    // Pins the folders; with a target, places them directly before it, in order.
    void add(const std::vector<std::string>& paths, const std::optional<Uuid>& before);
    // Moves a favourite to the target's place, in memory only; saveFavoriteOrder() keeps it.
    void reorderFavorite(const Uuid& id, const Uuid& before);
    void saveFavoriteOrder();
    // Edits the item in memory, then the same item in the file under the items lock; saves
    // the whole list when the file no longer has it.
    void update(const Uuid& id, const std::function<void(NotchItem&)>& edit);
    void unpin(const Uuid& id);
    void remove(const Uuid& id);
    // Opens the folder with the desktop's default handler and records the opening.
    void open(const NotchItem& item);

    // After every change of items().
    Signal<> itemsChanged;

private:
    void reload();
    void setItems(std::vector<NotchItem> items);

    Services services_;
    std::vector<NotchItem> items_;
    ObserverToken observer_ = 0;
    ObserverToken distributedObserver_ = 0;
    std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
};

} // namespace tidewell
