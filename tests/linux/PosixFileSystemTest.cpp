#include "linux/PosixFileSystem.h"

#include "core/platform/Error.h"
#include "support/TemporaryDirectory.h"

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace tidewell::testing {
namespace {

namespace fs = std::filesystem;

class PosixFileSystemTest : public ::testing::Test {
protected:
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

TEST_F(PosixFileSystemTest, AWriteReplacesTheFileWholeOrNotAtAllAndLeavesNothingElse) {
    const std::string file = root.write("data/items.json", "old");
    {
        FileSizeLimit limit(16);
        EXPECT_THROW(files.writeFileAtomically(file, std::string(4096, 'x')), Error);
    }
    EXPECT_EQ(files.readFile(file), "old");
    files.writeFileAtomically(file, "new contents");
    EXPECT_EQ(files.readFile(file), "new contents");
    EXPECT_EQ(files.readAt(file, 4, 5), "conte");
    EXPECT_EQ(files.fileVersion(file)->size, 12);
    EXPECT_EQ(files.fileVersion(root.path() + "/data/none"), std::nullopt);
    EXPECT_EQ(fs::directory_iterator(root.path() + "/data")->path(), file);
    EXPECT_EQ(std::distance(fs::directory_iterator(root.path() + "/data"), {}), 1);
    try {
        files.writeFileAtomically(root.path() + "/missing/items.json", "x");
        FAIL() << "writing into a missing folder should fail";
    } catch (const Error& error) {
        EXPECT_EQ(std::string(error.what()), "Cannot write a file in the folder " + root.path() +
                                                 "/missing: No such file or directory");
    }
}

// Opening a FIFO without a writer waits for one, and a device may never end.
TEST_F(PosixFileSystemTest, OnlyRegularFilesAreReadOrCopiedAndOthersFailAtOnce) {
    const std::string fifo = root.path() + "/logo.png";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    for (const std::string& path : {fifo, std::string("/dev/null"), root.makeFolder("icon.png")}) {
        SCOPED_TRACE(path);
        EXPECT_FALSE(files.isRegularFile(path));
        EXPECT_EQ(files.readAt(path, 0, 16), std::nullopt);
        EXPECT_EQ(files.readFile(path), std::nullopt);
        EXPECT_THROW(files.copyFile(path, root.path() + "/copy"), Error);
    }
    const std::string file = root.write("file", "bytes");
    files.copyFile(file, root.path() + "/copy");
    EXPECT_EQ(files.readFile(root.path() + "/copy"), "bytes");
    EXPECT_THROW(files.copyFile(file, file), Error);
    EXPECT_EQ(files.readFile(file), "bytes");
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
