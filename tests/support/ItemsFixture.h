#pragma once

#include "core/items/ItemDatabase.h"
#include "core/notify/NotificationCenter.h"
#include "core/notify/NotificationNames.h"
#include "core/platform/DistributedNotificationCenter.h"
#include "linux/PosixFileSystem.h"
#include "support/FakeImageFormats.h"
#include "support/FakeMainQueue.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>
#include <map>

namespace tidewell::testing {

// Records what was posted and delivers each post to this process's observers at once.
class FakeDistributedCenter : public DistributedNotificationCenter {
public:
    void post(std::string_view name) override {
        posted.emplace_back(name);
        const auto observers = observers_;
        for (const auto& [token, observer] : observers)
            if (observer.first == name)
                observer.second();
    }
    ObserverToken addObserver(std::string name, std::function<void()> handler) override {
        observers_.emplace(nextToken_, std::pair(std::move(name), std::move(handler)));
        return nextToken_++;
    }
    void removeObserver(ObserverToken token) override { observers_.erase(token); }

    std::vector<std::string> posted;

private:
    std::map<ObserverToken, std::pair<std::string, std::function<void()>>> observers_;
    ObserverToken nextToken_ = 1;
};

// An item database on real files in a fresh folder, with fake time and a recording bus.
class ItemsFixture : public ::testing::Test {
protected:
    std::string itemsFileBytes() const { return files.readFile(database.itemsURL()).value_or(""); }
    // A record as another writer could have made it, created and last opened at `created`.
    static NotchItem record(const std::string& name, const std::string& path, Date created) {
        return {.id = Uuid::random(),
                .name = name,
                .path = path,
                .initials = "N",
                .tintHex = "#000000",
                .createdAt = created,
                .lastOpenedAt = created};
    }
    static std::vector<std::string> names(const std::vector<NotchItem>& items) {
        std::vector<std::string> result;
        for (const NotchItem& item : items)
            result.push_back(item.name);
        return result;
    }

    TemporaryDirectory root;
    UserPaths paths{.home = root.makeFolder("home"), .applicationSupport = root.makeFolder("data")};
    DataFolder folder{paths};
    PosixFileSystem files;
    FakeClock clock;
    FakeMainQueue queue{clock};
    NotificationCenter localCenter{queue};
    FakeDistributedCenter distributedCenter;
    FakeImageFormats imageFormats;
    ItemDatabase database{{files, clock, localCenter, distributedCenter, imageFormats}, folder};
};

} // namespace tidewell::testing
