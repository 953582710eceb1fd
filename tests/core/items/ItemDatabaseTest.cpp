#include "core/items/ItemsJson.h"
#include "core/platform/Error.h"
#include "support/ItemsFixture.h"

#include <filesystem>
#include <thread>

namespace tidewell::testing {
namespace {

using std::chrono::seconds;

class ItemDatabaseTest : public ItemsFixture {
protected:
    NotchItem upsert(const std::string& path, bool favorite = false,
                     std::optional<std::string> name = std::nullopt, std::string command = "") {
        return database.upsert({.path = path,
                                .favorite = favorite,
                                .name = std::move(name),
                                .command = std::move(command)});
    }
    void writeItems(const std::vector<NotchItem>& items) {
        root.write("data/Tidewell/items.json", ItemsJson::encode(items));
    }
    NotchItem record(const std::string& name, const std::string& path, Date created) {
        NotchItem item;
        item.id = Uuid::random();
        item.name = name;
        item.path = path;
        item.initials = NotchItem::makeInitials(name);
        item.tintHex = NotchItem::makeTint(name);
        item.createdAt = created;
        item.lastOpenedAt = created;
        return item;
    }
};

TEST_F(ItemDatabaseTest, NewItemsTakeTheirLookFromTheFolderAndAreAnnounced) {
    const std::string project = root.makeFolder("work/myProject");
    const NotchItem recent = upsert(project);
    EXPECT_EQ(recent.name, "myProject");
    EXPECT_EQ(recent.initials, "MP");
    EXPECT_EQ(recent.tintHex, NotchItem::makeTint("myProject"));
    EXPECT_EQ(recent.path, project);
    EXPECT_FALSE(recent.isFavorite);
    EXPECT_FALSE(recent.sortOrder);
    EXPECT_EQ(recent.lastOpenedAt, clock.now());
    EXPECT_EQ(recent.createdAt, clock.now() - seconds(2));

    const NotchItem pinned = upsert(root.makeFolder("work/other"), true, "Studio", "npm start");
    EXPECT_EQ(pinned.name, "Studio");
    EXPECT_EQ(pinned.launchCommand, "npm start");
    EXPECT_EQ(pinned.createdAt, pinned.lastOpenedAt);

    EXPECT_EQ(database.load(), (std::vector{recent, pinned}));
    EXPECT_EQ(deliveredLocalPosts(), 2);
    EXPECT_EQ(distributedCenter.posted,
              (std::vector<std::string>{"Tidewell.itemsChanged", "Tidewell.itemsChanged"}));
}

TEST_F(ItemDatabaseTest, OneFolderReachedThroughALinkKeepsOneRecord) {
    const std::string project = root.makeFolder("work/real");
    const std::string link = root.path() + "/work/link";
    std::filesystem::create_directory_symlink(project, link);
    const NotchItem first = upsert(project);
    clock.advance(seconds(5));
    const NotchItem second = upsert(link + "/", true);
    EXPECT_EQ(second.id, first.id);
    EXPECT_EQ(second.path, project);
    EXPECT_TRUE(second.isFavorite);
    EXPECT_EQ(second.lastOpenedAt, clock.now());
    EXPECT_EQ(database.load().size(), 1u);
}

TEST_F(ItemDatabaseTest, MissingFoldersAreKnownByTheirNormalisedPath) {
    const std::string missing = root.path() + "/gone/project";
    EXPECT_EQ(database.folderIdentifier(missing), "path:" + missing);
    const NotchItem first = upsert(missing);
    const NotchItem again = upsert(root.path() + "/gone/./x/../project");
    EXPECT_EQ(again.id, first.id);
    EXPECT_EQ(database.load().size(), 1u);
    EXPECT_TRUE(database.folderIdentifier(root.path()).starts_with("ino:"));
}

TEST_F(ItemDatabaseTest, UpdatesNeverUnpinAndKeepWhatIsNotGiven) {
    const std::string project = root.makeFolder("web-dashboard");
    const NotchItem original = upsert(project, true, std::nullopt, "make dev");
    const NotchItem recorded = upsert(project, false, "", "");
    EXPECT_TRUE(recorded.isFavorite);
    EXPECT_EQ(recorded.name, "web-dashboard");
    EXPECT_EQ(recorded.launchCommand, "make dev");

    const NotchItem renamed = upsert(project, false, "Studio");
    EXPECT_EQ(renamed.name, "Studio");
    EXPECT_EQ(renamed.initials, "ST");
    EXPECT_EQ(renamed.tintHex, original.tintHex);
    EXPECT_EQ(renamed.createdAt, original.createdAt);

    const NotchItem recent = upsert(root.makeFolder("recent"));
    EXPECT_TRUE(upsert(recent.path, true).isFavorite);
}

TEST_F(ItemDatabaseTest, LoadingMergesRecordsOfOneFolderQuietly) {
    const std::string project = root.makeFolder("p");
    const Date early = clock.now();
    NotchItem older = record("Old", project, early);
    older.launchCommand = "make";
    NotchItem newer = record("New", project + "/.", early + seconds(10));
    newer.isFavorite = true;
    newer.lastOpenedAt = early + seconds(20);
    newer.sortOrder = 3;
    writeItems({newer, older});

    const std::vector<NotchItem> items = database.load();
    ASSERT_EQ(items.size(), 1u);
    const NotchItem& merged = items.front();
    EXPECT_EQ(merged.id, older.id);
    EXPECT_EQ(merged.createdAt, older.createdAt);
    EXPECT_EQ(merged.path, project);
    EXPECT_EQ(merged.name, "New");
    EXPECT_EQ(merged.initials, newer.initials);
    EXPECT_EQ(merged.tintHex, newer.tintHex);
    EXPECT_TRUE(merged.isFavorite);
    EXPECT_EQ(merged.lastOpenedAt, newer.lastOpenedAt);
    EXPECT_EQ(merged.sortOrder, 3);
    EXPECT_EQ(merged.launchCommand, "make");

    EXPECT_EQ(itemsFileBytes(), ItemsJson::encode(items));
    EXPECT_EQ(deliveredLocalPosts(), 0);
    EXPECT_TRUE(distributedCenter.posted.empty());
}

TEST_F(ItemDatabaseTest, AnOlderDuplicateOnlyMergesItsPinAndKeepsTheLook) {
    const std::string project = root.makeFolder("p");
    NotchItem kept = record("Kept", project, clock.now());
    kept.lastOpenedAt = clock.now() + seconds(30);
    NotchItem stale = record("Stale", project, clock.now() + seconds(1));
    stale.isFavorite = true;
    stale.launchCommand = "run";
    const auto items = database.deduplicated({kept, stale});
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].name, "Kept");
    EXPECT_EQ(items[0].launchCommand, "");
    EXPECT_TRUE(items[0].isFavorite);
    EXPECT_EQ(items[0].lastOpenedAt, kept.lastOpenedAt);
}

TEST_F(ItemDatabaseTest, TouchStampsOneRecordAndIgnoresUnknownIds) {
    const NotchItem item = upsert(root.makeFolder("p"));
    const std::string before = itemsFileBytes();
    const int postsBefore = deliveredLocalPosts();
    database.touch(Uuid::random());
    EXPECT_EQ(itemsFileBytes(), before);
    EXPECT_EQ(deliveredLocalPosts(), postsBefore);

    clock.advance(seconds(60));
    database.touch(item.id);
    EXPECT_EQ(database.load().front().lastOpenedAt, clock.now());
    EXPECT_EQ(deliveredLocalPosts(), postsBefore + 1);
}

TEST_F(ItemDatabaseTest, TheLegacyFolderIsCopiedOnceWhenThereIsNoItemsFile) {
    const NotchItem legacy = record("legacy", root.makeFolder("old"), clock.now());
    root.write("data/LedgeBox/items.json", ItemsJson::encode({legacy}));
    root.write("data/LedgeBox/Icons/A.png", "icon");
    EXPECT_EQ(database.load(), std::vector{legacy});
    EXPECT_EQ(files.readFile(folder.iconsFolder() + "/A.png"), "icon");

    const NotchItem other = record("other", root.makeFolder("other"), clock.now());
    root.write("data/LedgeBox/items.json", ItemsJson::encode({other}));
    EXPECT_EQ(database.load(), std::vector{legacy});
}

TEST_F(ItemDatabaseTest, ExternalIconsAreCopiedIntoTheCache) {
    NotchItem outside = record("outside", root.makeFolder("a"), clock.now());
    outside.iconPath = root.write("pictures/logo.PNG", "png");
    NotchItem cached = record("cached", root.makeFolder("b"), clock.now());
    cached.iconPath = root.write("data/Tidewell/Icons/" + cached.id.text() + ".png", "png");
    NotchItem gone = record("gone", root.makeFolder("c"), clock.now());
    gone.iconPath = root.path() + "/missing.png";
    writeItems({outside, cached, gone});

    EXPECT_EQ(database.cacheExternalIcons(), 1);
    const auto items = database.load();
    EXPECT_EQ(items[0].iconPath, folder.iconsFolder() + "/" + outside.id.text() + ".png");
    EXPECT_EQ(items[1].iconPath, cached.iconPath);
    EXPECT_EQ(items[2].iconPath, gone.iconPath);

    const int posts = deliveredLocalPosts();
    EXPECT_EQ(database.cacheExternalIcons(), 0);
    EXPECT_EQ(deliveredLocalPosts(), posts + 1);
}

TEST_F(ItemDatabaseTest, NewItemsGetTheIconFoundInTheirFolder) {
    const std::string project = root.makeFolder("app");
    root.write("app/public/favicon.ico", "ico");
    const NotchItem item = upsert(project);
    ASSERT_TRUE(item.iconPath);
    EXPECT_EQ(*item.iconPath, folder.iconsFolder() + "/" + item.id.text() + ".ico");
    EXPECT_EQ(files.readFile(*item.iconPath), "ico");
}

TEST_F(ItemDatabaseTest, AnUndecodableFileIsKeptBesideTheNewOne) {
    const std::string garbage = "[{\"name\": 1}]";
    root.write("data/Tidewell/items.json", garbage);
    EXPECT_TRUE(database.load().empty());
    upsert(root.makeFolder("p"));
    EXPECT_EQ(database.load().size(), 1u);
    EXPECT_EQ(files.readFile(database.itemsURL() + ".corrupt-20250304T180741Z"), garbage);

    const std::string otherGarbage = "{\"a\": 1}";
    root.write("data/Tidewell/items.json", otherGarbage);
    upsert(root.makeFolder("q"));
    EXPECT_EQ(files.readFile(database.itemsURL() + ".corrupt-20250304T180741Z"), garbage);
    EXPECT_EQ(files.readFile(database.itemsURL() + ".corrupt-20250304T180741Z-2"), otherGarbage);
}

TEST_F(ItemDatabaseTest, AFolderThatCannotBeCreatedFailsTheSaveAndChangesNothing) {
    root.write("blocked", "a file where the data folder should go");
    UserPaths blocked{.home = paths.home, .applicationSupport = root.path() + "/blocked"};
    ItemDatabase failing({files, clock, localCenter, distributedCenter}, DataFolder(blocked));
    try {
        failing.upsert({.path = root.makeFolder("p")});
        FAIL() << "the save should fail";
    } catch (const Error& error) {
        EXPECT_NE(std::string(error.what()).find(root.path() + "/blocked/Tidewell"),
                  std::string::npos);
    }
    EXPECT_EQ(deliveredLocalPosts(), 0);
    EXPECT_TRUE(distributedCenter.posted.empty());
}

TEST_F(ItemDatabaseTest, TextThatIsNotUtf8IsRefusedBeforeAnythingIsWritten) {
    upsert(root.makeFolder("good"));
    const std::string before = itemsFileBytes();
    const std::string bad = root.makeFolder("caf\xE9");
    try {
        upsert(bad);
        FAIL() << "a path that is not UTF-8 should be refused";
    } catch (const Error& error) {
        EXPECT_NE(std::string(error.what()).find("caf\\xE9"), std::string::npos);
    }
    EXPECT_THROW(upsert(root.makeFolder("fine"), false, std::string("bad\xFF")), Error);
    EXPECT_EQ(itemsFileBytes(), before);
}

TEST_F(ItemDatabaseTest, ConcurrentWritersLoseNoRecord) {
    std::vector<std::thread> writers;
    for (int writer = 0; writer < 4; ++writer) {
        writers.emplace_back([this, writer] {
            FakeClock ownClock;
            FakeMainQueue ownQueue(ownClock);
            NotificationCenter ownCenter(ownQueue);
            FakeDistributedCenter ownDistributed;
            ItemDatabase own({files, ownClock, ownCenter, ownDistributed}, folder);
            for (int i = 0; i < 10; ++i)
                own.upsert({.path = root.makeFolder("w" + std::to_string(writer) + "-" +
                                                    std::to_string(i))});
        });
    }
    for (auto& writer : writers)
        writer.join();
    EXPECT_EQ(database.load().size(), 40u);
}

} // namespace
} // namespace tidewell::testing
