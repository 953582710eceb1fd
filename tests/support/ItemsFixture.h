#pragma once

#include "core/items/ItemDatabase.h"
#include "core/notify/NotificationCenter.h"
#include "core/notify/NotificationNames.h"
#include "linux/PosixFileSystem.h"
#include "support/FakeClock.h"
#include "support/FakeDistributedCenter.h"
#include "support/FakeImageFormats.h"
#include "support/FakeMainQueue.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace tidewell::testing {

// An item database on real files in a fresh folder, with fake time and a fake
// notification centre between processes that keeps what was posted.
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
