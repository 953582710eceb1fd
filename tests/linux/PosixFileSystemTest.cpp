#include "linux/PosixFileSystem.h"

#include "core/platform/Error.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

#include <csignal>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace tidewell::testing {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

class PosixFileSystemTest : public ::testing::Test {
protected:
    // The message of the error the call throws; empty when it throws none.
    static std::string errorOf(const std::function<void()>& call) {
        try {
            call();
        } catch (const Error& error) {
            return error.what();
        }
        return "";
    }

    TemporaryDirectory root;
    PosixFileSystem files;
};

TEST_F(PosixFileSystemTest, AWriteReplacesTheFileWholeOrNotAtAllAndLeavesNothingElse) {
    const std::string file = root.write("data/items.json", "old");
    // Every write past a few bytes fails, as on a full disk, instead of ending the program.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit original = limit;
    limit.rlim_cur = 16;
    ::setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_THROW(files.writeFileAtomically(file, std::string(4096, 'x')), Error);
    ::setrlimit(RLIMIT_FSIZE, &original);
    EXPECT_EQ(files.readFile(file), "old");
    files.writeFileAtomically(file, "new contents");
    EXPECT_EQ(files.readFile(file), "new contents");
    EXPECT_EQ(files.fileVersion(file)->size, 12);
    EXPECT_EQ(files.fileVersion(root.path() + "/data/none"), std::nullopt);
    EXPECT_EQ(std::distance(fs::directory_iterator(root.path() + "/data"), {}), 1);
    EXPECT_EQ(errorOf([&] { files.writeFileAtomically(root.path() + "/missing/items.json", "x"); }),
              "Cannot write a file in the folder " + root.path() +
                  "/missing: No such file or directory");
}

// Opening a FIFO without a writer waits for one.
TEST_F(PosixFileSystemTest, OnlyRegularFilesAreReadOrCopiedAndOthersFailAtOnce) {
    const std::string fifo = root.path() + "/logo.png";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    const std::string copy = root.path() + "/copy";
    const std::pair<std::string, std::string> others[] = {
        {fifo, "Operation not supported"},
        {root.makeFolder("icon.png"), "Is a directory"},
        {root.path() + "/missing", "No such file or directory"},
    };
    for (const auto& [path, reason] : others) {
        EXPECT_FALSE(files.isRegularFile(path)) << path;
        EXPECT_EQ(files.readAt(path, 0, 16), std::nullopt) << path;
        EXPECT_EQ(files.readFile(path), std::nullopt) << path;
        EXPECT_EQ(errorOf([&] { files.copyFile(path, copy); }),
                  "Cannot copy " + path + " to " + copy + ": " + reason);
    }
    const std::string file = root.write("file", "bytes");
    files.copyFile(file, copy);
    EXPECT_EQ(files.readFile(copy), "bytes");
    EXPECT_EQ(errorOf([&] { files.copyFile(file, file); }),
              "Cannot copy " + file + " to " + file + ": File exists");
    EXPECT_EQ(files.readFile(file), "bytes");
}

// A removed working folder has no path of its own: the one the shell named, else the root.
TEST_F(PosixFileSystemTest, ARemovedWorkingFolderIsTheOneTheShellNamedOrTheRoot) {
    const fs::path before = fs::current_path();
    const std::string gone = root.makeFolder("gone");
    fs::current_path(gone);
    fs::remove(gone);
    ScopedEnvironment environment;
    for (const auto& [pwd, expected] : {std::pair{gone, gone}, std::pair{"relative"s, "/"s}}) {
        environment.set("PWD", pwd);
        EXPECT_EQ(files.currentDirectory(), expected);
    }
    fs::current_path(before);
}

} // namespace
} // namespace tidewell::testing
