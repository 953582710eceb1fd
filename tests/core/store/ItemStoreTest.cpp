#include "core/store/ItemStore.h"

#include "core/items/ItemsJson.h"
#include "support/FakeWorkspace.h"
#include "support/ItemsFixture.h"

#include <algorithm>
#include <memory>

namespace tidewell::testing {
namespace {

using std::chrono::seconds;
using Names = std::vector<std::string>;
using SortOrders = std::vector<std::optional<std::int64_t>>;

Names names(const std::vector<NotchItem>& items) {
    Names result;
    std::ranges::transform(items, std::back_inserter(result), &NotchItem::name);
    return result;
}
SortOrders sortOrders(const std::vector<NotchItem>& items) {
    SortOrders result;
    std::ranges::transform(items, std::back_inserter(result), &NotchItem::sortOrder);
    return result;
}

// The favourites in the file, in the order their sort orders give.
Names placedNamesInFile(ItemDatabase& database) {
    auto items = database.load();
    std::erase_if(items, [](const NotchItem& item) { return !item.sortOrder; });
    std::ranges::sort(items, {}, &NotchItem::sortOrder);
    return names(items);
}

class ItemStoreTest : public ItemsFixture {
protected:
    // A pinned project folder whose record was created `age` seconds from now.
    NotchItem pinned(const std::string& name, std::optional<std::int64_t> sortOrder, int age = 0) {
        const Date created = clock.now() + seconds(age);
        return {.id = Uuid::random(),
                .name = name,
                .path = root.makeFolder("projects/" + name),
                .initials = "N",
                .tintHex = "#000000",
                .isFavorite = true,
                .createdAt = created,
                .lastOpenedAt = created,
                .sortOrder = sortOrder};
    }

    // Writes the items file and opens a fresh store on it, with no notification pending.
    ItemStore& openStore(const std::vector<NotchItem>& items) {
        opened.reset();
        database.save(items);
        queue.runUntilIdle();
        opened = std::make_unique<ItemStore>(
            ItemStore::Services{database, localCenter, distributedCenter, queue, workspace});
        changes = 0;
        counting = opened->itemsChanged.connect([this] { ++changes; });
        return *opened;
    }

    FakeWorkspace workspace;
    std::unique_ptr<ItemStore> opened;
    int changes = 0;
    Connection counting;
};

TEST_F(ItemStoreTest, FavoritesPutPlacedOnesInOrderThenUnplacedOldestFirst) {
    NotchItem recent = pinned("recent", std::nullopt);
    recent.isFavorite = false;
    const auto& store =
        openStore({pinned("two", 2, 30), pinned("late", std::nullopt, 20), pinned("zero", 0, 10),
                   recent, pinned("early", std::nullopt, 5)});
    EXPECT_EQ(names(store.favorites()), (Names{"zero", "two", "early", "late"}));
}

TEST_F(ItemStoreTest, ReorderTakesTheTargetsPlaceInMemoryUntilSaved) {
    const struct {
        int moved;
        int target;
        Names expected;
    } cases[] = {{0, 2, {"B", "C", "A", "D"}}, {3, 1, {"A", "D", "B", "C"}}};
    for (const auto& [moved, target, expected] : cases) {
        SCOPED_TRACE(moved);
        const std::vector items{pinned("A", 0), pinned("B", 1), pinned("C", 2), pinned("D", 3)};
        ItemStore& store = openStore(items);
        const std::string savedBytes = itemsFileBytes();

        store.reorderFavorite(items[moved].id, items[target].id);
        EXPECT_EQ(names(store.favorites()), expected);
        EXPECT_EQ(sortOrders(store.favorites()), (SortOrders{0, 1, 2, 3}));
        EXPECT_EQ(changes, 1);
        EXPECT_EQ(itemsFileBytes(), savedBytes);

        store.saveFavoriteOrder();
        EXPECT_EQ(placedNamesInFile(database), expected);
        EXPECT_EQ(names(store.favorites()), expected);

        // An unknown or the same id changes nothing.
        const std::vector<NotchItem> reordered = store.items();
        const int changesBefore = changes;
        store.reorderFavorite(Uuid::random(), items[target].id);
        store.reorderFavorite(items[moved].id, Uuid::random());
        store.reorderFavorite(items[moved].id, items[moved].id);
        EXPECT_EQ(store.items(), reordered);
        EXPECT_EQ(changes, changesBefore);
    }
}

TEST_F(ItemStoreTest, FoldersAddedBeforeAFavouriteAreNumberedInPlaceEvenIfOneFails) {
    const struct {
        const char* description;
        bool withFailingPath;
    } cases[] = {{"all recorded", false}, {"one not valid UTF-8", true}};
    for (const auto& [description, withFailingPath] : cases) {
        SCOPED_TRACE(description);
        const std::vector items{pinned("X", 0), pinned("Y", 1), pinned("Z", 2)};
        ItemStore& store = openStore(items);
        std::vector<std::string> paths{root.makeFolder("new/P1"), root.makeFolder("new/P2")};
        if (withFailingPath)
            paths.insert(paths.begin() + 1, root.path() + "/new/P\xff");

        store.add(paths, items[1].id);
        EXPECT_EQ(names(store.favorites()), (Names{"X", "P1", "P2", "Y", "Z"}));
        EXPECT_EQ(sortOrders(store.favorites()), (SortOrders{0, 1, 2, 3, 4}));
        EXPECT_EQ(placedNamesInFile(database), (Names{"X", "P1", "P2", "Y", "Z"}));
    }
}

TEST_F(ItemStoreTest, FoldersAddedWithoutATargetStayUnplacedUnpinRemoveAndOthersChanges) {
    const std::vector items{pinned("X", 0), pinned("old", std::nullopt, -60), pinned("Y", 1)};
    ItemStore& store = openStore(items);
    clock.advance(seconds(1));
    store.add({root.makeFolder("new/P1")}, std::nullopt);
    store.add({root.makeFolder("new/P2")}, Uuid::random()); // an unknown target is none
    store.add(root.makeFolder("new/recent"), false);
    EXPECT_EQ(names(store.favorites()), (Names{"X", "Y", "old", "P1", "P2"}));
    EXPECT_EQ(sortOrders(store.favorites()),
              (SortOrders{0, 1, std::nullopt, std::nullopt, std::nullopt}));
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

// Its own save reloads once per centre without changing the list; a store gone before its
// reload runs is left alone.
TEST_F(ItemStoreTest, ANotificationReloadsLaterAndDropsAnUnsavedReorder) {
    const std::vector items{pinned("A", 0), pinned("B", 1)};
    ItemStore& store = openStore(items);
    store.reorderFavorite(items[1].id, items[0].id);
    root.write("data/Tidewell/items.json", ItemsJson::encode({items[0]}));
    distributedCenter.post(notchItemsChanged);
    EXPECT_EQ(names(store.favorites()), (Names{"B", "A"}));
    queue.runUntilIdle();
    EXPECT_EQ(store.items(), std::vector{items[0]});

    changes = 0;
    store.unpin(items[0].id);
    const std::vector<NotchItem> saved = store.items();
    queue.runUntilIdle();
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(store.items(), saved);

    distributedCenter.post(notchItemsChanged);
    localCenter.post(notchItemsChanged);
    opened.reset();
    queue.runUntilIdle();
    EXPECT_EQ(changes, 3);
    distributedCenter.post(notchItemsChanged);
    EXPECT_EQ(queue.pendingCount(), 0u);
}

// The shelf hears an edit before any reload; other writers' changes are kept, and an item
// removed elsewhere while the user still edits it comes back.
TEST_F(ItemStoreTest, UpdateEditsInMemoryAtOnceAndSavesOnceAnUnknownIdDoesNothing) {
    const std::vector items{pinned("A", 0), pinned("B", 1)};
    ItemStore& store = openStore(items);
    NotchItem renamedElsewhere = items[1];
    renamedElsewhere.name = "B2";
    root.write("data/Tidewell/items.json", ItemsJson::encode({items[0], renamedElsewhere}));
    const std::size_t postsBefore = distributedCenter.posted.size();
    store.update(items[0].id, [](NotchItem& item) { item.name = ""; });
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(store.items()[0].name, "");
    EXPECT_EQ(distributedCenter.posted.size(), postsBefore + 1);
    EXPECT_EQ(names(database.load()), (Names{"", "B2"}));

    store.update(Uuid::random(), [](NotchItem& item) { item.name = "lost"; });
    EXPECT_EQ(distributedCenter.posted.size(), postsBefore + 1);
    EXPECT_EQ(changes, 1);

    root.write("data/Tidewell/items.json", ItemsJson::encode({items[1]}));
    store.update(items[0].id, [](NotchItem& item) { item.name = "A3"; });
    EXPECT_EQ(database.load(), store.items());
    EXPECT_EQ(names(database.load()), (Names{"A3", "B"}));
}

} // namespace
} // namespace tidewell::testing
