#include "core/store/ItemStore.h"

#include "support/FakeWorkspace.h"
#include "support/ItemsFixture.h"

#include <algorithm>

namespace tidewell::testing {
namespace {

using std::chrono::seconds;
using Names = std::vector<std::string>;
using SortOrders = std::vector<std::optional<std::int64_t>>;

class ItemStoreTest : public ItemsFixture {
protected:
    // A pinned project folder whose record was created `age` seconds from now.
    NotchItem pinned(const std::string& name, std::optional<std::int64_t> sortOrder, int age = 0) {
        NotchItem item =
            record(name, root.makeFolder("projects/" + name), clock.now() + seconds(age));
        item.isFavorite = true;
        item.sortOrder = sortOrder;
        return item;
    }

    FakeWorkspace workspace;
};

TEST_F(ItemStoreTest, FoldersAddedWithoutATargetStayUnplacedUnpinRemoveAndOthersChanges) {
    const std::vector items{pinned("X", 0), pinned("old", std::nullopt, -60), pinned("Y", 1)};
    database.save(items);
    queue.runUntilIdle(); // no notification pending
    ItemStore store{{database, localCenter, distributedCenter, queue, workspace}};
    clock.advance(seconds(1));
    store.add({root.makeFolder("new/P1")}, std::nullopt);
    store.add({root.makeFolder("new/P2")}, Uuid::random()); // an unknown target is none
    store.add(root.makeFolder("new/recent"), false);
    EXPECT_EQ(names(store.favorites()), (Names{"X", "Y", "old", "P1", "P2"}));
    SortOrders orders;
    std::ranges::transform(store.favorites(), std::back_inserter(orders), &NotchItem::sortOrder);
    EXPECT_EQ(orders, (SortOrders{0, 1, std::nullopt, std::nullopt, std::nullopt}));
    EXPECT_EQ(store.items().size(), 6u);
    EXPECT_EQ(store.items(), database.load());

    // Unpinning clears the place and pinning again leaves it unplaced; another writer's
    // record made since the last load is kept.
    database.upsert({.path = root.makeFolder("projects/C"), .favorite = true});
    store.unpin(items[0].id);
    EXPECT_EQ(names(store.favorites()), (Names{"Y", "old", "P1", "P2", "C"}));
    EXPECT_EQ(store.items(), database.load());
    store.add(items[0].path, true);
    EXPECT_EQ(names(store.favorites()), (Names{"Y", "old", "X", "P1", "P2", "C"}));
    EXPECT_FALSE(store.favorites()[2].sortOrder);

    store.remove(items[1].id);
    EXPECT_EQ(store.items(), database.load());
    EXPECT_EQ(store.items().size(), 6u);
    const std::size_t postsBefore = distributedCenter.posted.size();
    store.remove(Uuid::random()); // still saved and announced
    EXPECT_EQ(distributedCenter.posted.size(), postsBefore + 1);
}

} // namespace
} // namespace tidewell::testing
