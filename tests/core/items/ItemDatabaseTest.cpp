#include "core/items/ItemsJson.h"
#include "core/platform/Error.h"
#include "linux/FileDescriptor.h"
#include "support/ItemsFixture.h"

#include <filesystem>
#include <sys/file.h>

namespace tidewell::testing {
namespace {

using std::chrono::seconds;

// The real file system, noting the paths below one folder that are examined while another
// holder has the items lock, and running a change once just before the next lock is taken.
class LockWatchingFileSystem : public PosixFileSystem {
public:
    LockWatchingFileSystem(std::string lockFile, std::string watched)
        : lockFile_(std::move(lockFile)), watched_(std::move(watched)) {}
    std::vector<DirectoryEntry> list(const std::string& directory) const override {
        note(directory);
        return PosixFileSystem::list(directory);
    }
    std::optional<LinkStatus> linkStatus(const std::string& path) const override {
        note(path);
        return PosixFileSystem::linkStatus(path);
    }
    void copyFile(const std::string& from, const std::string& to) override {
        note(from);
        PosixFileSystem::copyFile(from, to);
    }
    std::unique_ptr<FileLock> lockExclusive(const std::string& path) override {
        if (beforeLock)
            std::exchange(beforeLock, nullptr)();
        return PosixFileSystem::lockExclusive(path);
    }
    mutable std::vector<std::string> examined;
    mutable std::vector<std::string> examinedUnderLock;
    std::function<void()> beforeLock;

private:
    void note(const std::string& path) const {
        const FileDescriptor fd(::open(lockFile_.c_str(), O_RDONLY | O_CLOEXEC));
        if (!path.starts_with(watched_))
            return;
        examined.push_back(path);
        if (fd.get() >= 0 && ::flock(fd.get(), LOCK_EX | LOCK_NB))
            examinedUnderLock.push_back(path);
    }
    std::string lockFile_;
    std::string watched_;
};

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
        return {.id = Uuid::random(),
                .name = name,
                .path = path,
                .initials = "N",
                .tintHex = "#000000",
                .createdAt = created,
                .lastOpenedAt = created};
    }
    int deliveredPosts() {
        const int local = deliveredLocalPosts();
        EXPECT_EQ(distributedCenter.posted, std::vector<std::string>(local, notchItemsChanged));
        return local;
    }
};

TEST_F(ItemDatabaseTest, NewItemsTakeTheirLookAndIconFromTheFolderAndAreAnnounced) {
    const std::string project = root.makeFolder("work/myProject");
    root.write("work/myProject/public/favicon.ico", "ico");
    const NotchItem recent = upsert(project);
    EXPECT_EQ(recent.name, "myProject");
    EXPECT_EQ(recent.initials, "MP");
    EXPECT_EQ(recent.tintHex, NotchItem::makeTint("myProject"));
    EXPECT_FALSE(recent.isFavorite);
    EXPECT_FALSE(recent.sortOrder);
    EXPECT_EQ(recent.lastOpenedAt, clock.now());
    EXPECT_EQ(recent.createdAt, clock.now() - seconds(2));
    EXPECT_EQ(recent.iconPath, folder.iconsFolder() + "/" + recent.id.text() + ".ico");
    EXPECT_EQ(files.readFile(*recent.iconPath), "ico");

    const NotchItem pinned = upsert(root.makeFolder("work/other"), true, "Studio", "npm start");
    EXPECT_EQ(pinned.name, "Studio");
    EXPECT_EQ(pinned.launchCommand, "npm start");
    EXPECT_EQ(pinned.createdAt, pinned.lastOpenedAt);
    EXPECT_FALSE(pinned.iconPath);

    EXPECT_EQ(database.load(), (std::vector{recent, pinned}));
    EXPECT_EQ(deliveredPosts(), 2);
}

TEST_F(ItemDatabaseTest, OneFolderKeepsOneRecordWhicheverPathLeadsToIt) {
    const std::string project = root.makeFolder("work/real");
    std::filesystem::create_directory_symlink(project, root.path() + "/work/link");
    const NotchItem first = upsert(project);
    clock.advance(seconds(5));
    const NotchItem second = upsert(root.path() + "/work/link/", true);
    EXPECT_EQ(second.id, first.id);
    EXPECT_EQ(second.path, project);
    EXPECT_EQ(second.lastOpenedAt, clock.now());
    // Updates never unpin and keep what is not given; a new name gives new initials only.
    upsert(project, false, std::nullopt, "make dev");
    const NotchItem renamed = upsert(project, false, "Studio", "");
    EXPECT_EQ(std::tie(renamed.isFavorite, renamed.launchCommand, renamed.initials),
              std::tie(second.isFavorite, "make dev", "ST"));
    EXPECT_EQ(std::tie(renamed.tintHex, renamed.createdAt),
              std::tie(first.tintHex, first.createdAt));

    // A folder that does not exist is known by its normalised path.
    const std::string missing = root.path() + "/gone/project";
    EXPECT_EQ(upsert(root.path() + "/gone/./x/../project").id, upsert(missing).id);
    EXPECT_EQ(database.load().size(), 2u);

    // Touching stamps one record; an unknown id changes nothing and announces nothing.
    const std::string before = itemsFileBytes();
    database.touch(Uuid::random());
    EXPECT_EQ(itemsFileBytes(), before);
    clock.advance(seconds(60));
    database.touch(first.id);
    EXPECT_EQ(database.load().front().lastOpenedAt, clock.now());
    EXPECT_EQ(deliveredPosts(), 7);
}

// Stored folders are examined again only where their parent changed since the file was written.
TEST_F(ItemDatabaseTest, StoredFoldersAreExaminedAgainOnlyWhereTheirParentChanged) {
    const std::string a = root.makeFolder("work/a"), b = root.makeFolder("work/b");
    upsert(a);
    upsert(b);
    LockWatchingFileSystem watching(folder.itemsLock(), root.path() + "/work/");
    ItemDatabase watched({watching, clock, localCenter, distributedCenter, imageFormats}, folder);
    const auto now = std::filesystem::file_time_type::clock::now();
    std::filesystem::last_write_time(database.itemsURL(), now + std::chrono::hours(1));
    watched.upsert({.path = b});
    EXPECT_EQ(watching.examined, std::vector{b});

    std::filesystem::last_write_time(database.itemsURL(), now - std::chrono::hours(1));
    std::filesystem::remove(b);
    std::filesystem::create_directory_symlink(a, b);
    upsert(a);
    EXPECT_EQ(database.load().size(), 1u);
}

// The earliest record keeps its id and creation; the most recently opened one gives its look.
TEST_F(ItemDatabaseTest, RecordsOfOneFolderAreMergedQuietlyOnLoad) {
    const std::string project = root.makeFolder("p");
    const Date early = clock.now();
    NotchItem older = record("Old", project, early);
    older.launchCommand = "make";
    NotchItem newer = record("New", project + "/.", early + seconds(10));
    newer.isFavorite = true;
    newer.lastOpenedAt = early + seconds(20);
    newer.sortOrder = 3;
    writeItems({newer, older});

    NotchItem merged = newer;
    merged.id = older.id;
    merged.createdAt = older.createdAt;
    merged.path = project;
    merged.launchCommand = "make";
    EXPECT_EQ(database.load(), std::vector{merged});
    EXPECT_EQ(itemsFileBytes(), ItemsJson::encode({merged}));
    EXPECT_EQ(deliveredPosts(), 0);

    // A duplicate opened earlier only adds its pin.
    NotchItem kept = record("Kept", project, early);
    kept.lastOpenedAt = early + seconds(30);
    NotchItem stale = record("Stale", project, early + seconds(1));
    stale.isFavorite = true;
    stale.launchCommand = "run";
    const std::vector<NotchItem> deduplicated = database.deduplicated({kept, stale});
    kept.isFavorite = true;
    EXPECT_EQ(deduplicated, std::vector{kept});
}

TEST_F(ItemDatabaseTest, TheLegacyFolderIsCopiedOnceWhenThereIsNoItemsFile) {
    const NotchItem legacy = record("legacy", root.makeFolder("old"), clock.now());
    root.write("data/LedgeBox/items.json", ItemsJson::encode({legacy}));
    root.write("data/LedgeBox/Icons/A.png", "icon");
    EXPECT_EQ(database.load(), std::vector{legacy});
    EXPECT_EQ(files.readFile(folder.iconsFolder() + "/A.png"), "icon");

    root.write("data/LedgeBox/items.json", "[]");
    EXPECT_EQ(database.load(), std::vector{legacy});
}

// A project folder may hang (a network mount); no other writer may wait on it. What was
// prepared without the lock is not applied to a record another writer made meanwhile.
TEST_F(ItemDatabaseTest, ProjectFoldersAreExaminedBeforeTheLockIsTaken) {
    LockWatchingFileSystem watching(folder.itemsLock(), root.path() + "/work");
    ItemDatabase watched({watching, clock, localCenter, distributedCenter, imageFormats}, folder);
    NotchItem external = record("b", root.makeFolder("work/b"), clock.now());
    external.iconPath = root.write("work/b/logo.png", "png");
    writeItems({external});
    EXPECT_EQ(watched.cacheExternalIcons(), 1);
    const std::string project = root.makeFolder("work/a");
    root.write("work/a/public/favicon.ico", "ico");
    EXPECT_TRUE(watched.upsert({.path = project}).iconPath);
    const auto other = root.write("work/a/other.png", "png");
    EXPECT_EQ(files.readFile(*watched.upsert({.path = project, .icon = other}).iconPath), "png");
    EXPECT_EQ(watching.examinedUnderLock, std::vector<std::string>{});

    const NotchItem meanwhile = record("c", root.makeFolder("work/c"), clock.now());
    root.write("work/c/icon.png", "png");
    const std::size_t copies = files.list(folder.iconsFolder()).size();
    watching.beforeLock = [&] { writeItems({meanwhile}); };
    const NotchItem updated = watched.upsert({.path = meanwhile.path, .favorite = true});
    EXPECT_EQ(updated.id, meanwhile.id);
    EXPECT_EQ(updated.iconPath, std::nullopt); // a known folder is not searched for an icon
    EXPECT_EQ(files.list(folder.iconsFolder()).size(), copies);

    NotchItem changed = record("d", root.makeFolder("work/d"), clock.now());
    changed.iconPath = root.write("work/d.png", "png");
    writeItems({changed});
    changed.iconPath = root.write("work/d/chosen-meanwhile.png", "png");
    watching.beforeLock = [&] { writeItems({changed}); };
    EXPECT_EQ(watched.cacheExternalIcons(), 0);
    EXPECT_EQ(itemsFileBytes(), ItemsJson::encode({changed}));
}

// A copy kept earlier in the same second is not replaced.
TEST_F(ItemDatabaseTest, AnUndecodableFileIsKeptBesideTheNewOne) {
    for (const std::string suffix : {"", "-2"}) {
        root.write("data/Tidewell/items.json", "[{\"name\": 1}]" + suffix);
        EXPECT_TRUE(database.load().empty());
        upsert(root.makeFolder("p"));
        EXPECT_EQ(database.load().size(), 1u);
        EXPECT_EQ(files.readFile(database.itemsURL() + ".corrupt-20250304T180741Z" + suffix),
                  "[{\"name\": 1}]" + suffix);
    }
}

TEST_F(ItemDatabaseTest, ARefusedOrFailedSaveWritesAndAnnouncesNothing) {
    upsert(root.makeFolder("good"));
    const std::string before = itemsFileBytes();
    EXPECT_THROW(upsert(root.makeFolder("caf\xE9")), Error);
    EXPECT_THROW(upsert(root.makeFolder("fine"), false, std::string("bad\xFF")), Error);
    EXPECT_EQ(itemsFileBytes(), before);

    root.write("blocked", "a file where the data folder should go");
    ItemDatabase blocked(
        {files, clock, localCenter, distributedCenter, imageFormats},
        DataFolder({.home = paths.home, .applicationSupport = root.path() + "/blocked"}));
    EXPECT_THROW(blocked.upsert({.path = root.makeFolder("p")}), Error);
    EXPECT_EQ(deliveredPosts(), 1);
}

} // namespace
} // namespace tidewell::testing
