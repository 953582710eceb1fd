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
    void writeItems(const std::vector<NotchItem>& items) {
        root.write("data/Tidewell/items.json", ItemsJson::encode(items));
    }
};

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
    // Written long after the folder was made: only paths not in their plain form are examined.
    std::filesystem::last_write_time(
        database.itemsURL(), std::filesystem::file_time_type::clock::now() + std::chrono::hours(1));

    NotchItem merged = newer;
    merged.id = older.id;
    merged.createdAt = older.createdAt;
    merged.path = project;
    merged.launchCommand = "make";
    EXPECT_EQ(database.load(), std::vector{merged});
    EXPECT_TRUE(distributedCenter.posted.empty());

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
    // Without an items file the records come again, but not into an icons folder that is there.
    root.write("data/LedgeBox/Icons/B.png", "icon");
    std::filesystem::remove(folder.iconsFolder() + "/A.png");
    std::filesystem::remove(database.itemsURL());
    EXPECT_EQ(database.load(), std::vector{legacy});
    EXPECT_FALSE(files.exists(folder.iconsFolder() + "/B.png"));

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
    // A name that cannot be stored is refused before an icon is copied for it.
    root.write("work/e/icon.png", "png");
    EXPECT_THROW(watched.upsert({.path = root.path() + "/work/e", .name = "\xff"}), Error);
    EXPECT_EQ(files.list(folder.iconsFolder()).size(), copies);
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

// Stored folders are examined again only where their parent changed since the file was written.
TEST_F(ItemDatabaseTest, StoredFoldersAreExaminedAgainOnlyWhereTheirParentChanged) {
    const std::string a = root.makeFolder("work/a"), b = root.makeFolder("work/b");
    database.upsert({.path = a});
    database.upsert({.path = b});
    LockWatchingFileSystem watching(folder.itemsLock(), root.path() + "/work/");
    ItemDatabase watched({watching, clock, localCenter, distributedCenter, imageFormats}, folder);
    const auto now = std::filesystem::file_time_type::clock::now();
    // Half a second past the time a change made meanwhile takes to settle.
    std::filesystem::last_write_time(database.itemsURL(), now + std::chrono::milliseconds(5500));
    watched.upsert({.path = b});
    EXPECT_EQ(watching.examined, std::vector{b});

    std::filesystem::last_write_time(database.itemsURL(), now - std::chrono::hours(1));
    std::filesystem::remove(b);
    std::filesystem::create_directory_symlink(a, b);
    database.upsert({.path = a});
    EXPECT_EQ(database.load().size(), 1u);
}

// A copy kept earlier in the same second is not replaced.
TEST_F(ItemDatabaseTest, AnUndecodableFileIsKeptBesideTheNewOne) {
    for (const std::string suffix : {"", "-2"}) {
        root.write("data/Tidewell/items.json", "[{\"name\": 1}]" + suffix);
        EXPECT_TRUE(database.load().empty());
        database.upsert({.path = root.makeFolder("p")});
        EXPECT_EQ(database.load().size(), 1u);
        EXPECT_EQ(files.readFile(database.itemsURL() + ".corrupt-20250304T180741Z" + suffix),
                  "[{\"name\": 1}]" + suffix);
    }
}

} // namespace
} // namespace tidewell::testing
