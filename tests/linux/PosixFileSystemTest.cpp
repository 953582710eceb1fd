#include "linux/PosixFileSystem.h"

#include "core/platform/Error.h"
#include "support/TemporaryDirectory.h"

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>

namespace tidewell::testing {
namespace {

namespace fs = std::filesystem;

class PosixFileSystemTest : public ::testing::Test {
protected:
    std::vector<std::string> namesIn(const std::string& folder) {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder))
            names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }

    TemporaryDirectory root;
    PosixFileSystem files;
};

// Makes every write past a few bytes fail, as a full disk would, for the life of the object.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &original_);
        previousHandler_ = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = original_;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &original_);
        std::signal(SIGXFSZ, previousHandler_);
    }

private:
    rlimit original_{};
    void (*previousHandler_)(int) = nullptr;
};

TEST_F(PosixFileSystemTest, AtomicWritesReplaceTheFileAndLeaveNothingElse) {
    const std::string file = root.write("data/items.json", "old");
    files.writeFileAtomically(file, "new contents");
    EXPECT_EQ(files.readFile(file), "new contents");
    EXPECT_EQ(files.readPrefix(file, 3), "new");
    EXPECT_EQ(namesIn(root.path() + "/data"), std::vector<std::string>{"items.json"});
}

TEST_F(PosixFileSystemTest, AFailedWriteKeepsTheOldFileAndRemovesItsTemporaryFile) {
    const std::string file = root.write("data/items.json", "old");
    {
        FileSizeLimit limit(16);
        EXPECT_THROW(files.writeFileAtomically(file, std::string(4096, 'x')), Error);
    }
    EXPECT_EQ(files.readFile(file), "old");
    EXPECT_EQ(namesIn(root.path() + "/data"), std::vector<std::string>{"items.json"});
    try {
        files.writeFileAtomically(root.path() + "/missing/items.json", "x");
        FAIL() << "writing into a missing folder should fail";
    } catch (const Error& error) {
        EXPECT_EQ(std::string(error.what()), "Cannot write a file in the folder " + root.path() +
                                                 "/missing: No such file or directory");
    }
}

TEST_F(PosixFileSystemTest, ListingTellsRealFoldersFromLinksToThem) {
    root.makeFolder("project/folder");
    root.write("project/file.png");
    fs::create_directory_symlink(root.path() + "/project/folder", root.path() + "/project/link");
    auto entries = files.list(root.path() + "/project");
    std::sort(entries.begin(), entries.end(), [](auto& a, auto& b) { return a.name < b.name; });
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].name, "file.png");
    EXPECT_FALSE(entries[0].isDirectory);
    EXPECT_EQ(entries[1].name, "folder");
    EXPECT_TRUE(entries[1].isDirectory);
    EXPECT_EQ(entries[2].name, "link");
    EXPECT_FALSE(entries[2].isDirectory);
    EXPECT_TRUE(files.isDirectory(root.path() + "/project/link"));

    const auto link = files.linkStatus(root.path() + "/project/link");
    ASSERT_TRUE(link);
    EXPECT_TRUE(link->isSymbolicLink);
    EXPECT_EQ(files.readSymbolicLink(root.path() + "/project/link"),
              root.path() + "/project/folder");
    EXPECT_FALSE(files.readSymbolicLink(root.path() + "/project/folder"));
    EXPECT_FALSE(files.linkStatus(root.path() + "/nothing"));
    EXPECT_TRUE(files.list(root.path() + "/nothing").empty());
    EXPECT_FALSE(files.readFile(root.path() + "/project"));
}

TEST_F(PosixFileSystemTest, CopiesAndRemovalsReportWhatFailed) {
    const std::string source = root.write("icons/logo.png", "png");
    files.copyFile(source, root.path() + "/copy.png");
    files.copyFile(source, root.path() + "/copy.png");
    EXPECT_EQ(files.readFile(root.path() + "/copy.png"), "png");
    files.copyDirectory(root.path() + "/icons", root.path() + "/icons2");
    EXPECT_EQ(files.readFile(root.path() + "/icons2/logo.png"), "png");
    files.removeFile(root.path() + "/copy.png");
    EXPECT_FALSE(files.exists(root.path() + "/copy.png"));
    EXPECT_THROW(files.removeFile(root.path() + "/copy.png"), Error);
    EXPECT_THROW(files.copyFile(root.path() + "/none", root.path() + "/x"), Error);
    root.write("blocker");
    EXPECT_THROW(files.createDirectories(root.path() + "/blocker/folder"), Error);
}

TEST_F(PosixFileSystemTest, TheLockIsExclusiveUntilReleased) {
    const std::string lockFile = root.path() + "/items.lock";
    auto isFree = [&] {
        const int fd = ::open(lockFile.c_str(), O_RDWR);
        const bool free = ::flock(fd, LOCK_EX | LOCK_NB) == 0;
        ::close(fd);
        return free;
    };
    {
        const auto lock = files.lockExclusive(lockFile);
        EXPECT_FALSE(isFree());
    }
    EXPECT_TRUE(isFree());
    EXPECT_THROW(files.lockExclusive(root.path() + "/missing/items.lock"), Error);
}

} // namespace
} // namespace tidewell::testing
