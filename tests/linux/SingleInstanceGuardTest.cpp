#include "linux/SingleInstanceGuard.h"

#include "linux/PosixProcessLauncher.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using testing::TemporaryDirectory;

TEST(SingleInstanceGuard, OneGuardAtATimeAndNoneWhereTheLockFileCannotBeMade) {
    TemporaryDirectory home;
    const DataFolder folder(UserPaths{home.path(), home.path() + "/data/new"});

    auto first = SingleInstanceGuard::acquire(folder);
    ASSERT_NE(first, nullptr);
    const auto mode = std::filesystem::status(folder.appLock()).permissions();
    EXPECT_EQ(mode & std::filesystem::perms::all,
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    EXPECT_EQ(SingleInstanceGuard::acquire(folder), nullptr);

    first.reset();
    EXPECT_TRUE(std::filesystem::exists(folder.appLock()));
    EXPECT_NE(SingleInstanceGuard::acquire(folder), nullptr);
    // A file where the data folder's parent should be: nothing can be created below it.
    const std::string blocked = home.write("blocked");
    EXPECT_EQ(SingleInstanceGuard::acquire(DataFolder(UserPaths{home.path(), blocked})), nullptr);
}

TEST(SingleInstanceGuard, ProgramsWeStartDoNotInheritTheLock) {
    TemporaryDirectory home;
    const DataFolder folder(UserPaths{home.path(), home.path()});
    const auto guard = SingleInstanceGuard::acquire(folder);
    ASSERT_NE(guard, nullptr);

    const std::string listing = home.path() + "/descriptors";
    PosixProcessLauncher().runAndWait("sh", {"-c", "ls -l /proc/$$/fd > " + listing});
    std::ifstream file(listing);
    const std::string descriptors(std::istreambuf_iterator<char>(file), {});
    EXPECT_NE(descriptors.find(" 0 -> "), std::string::npos) << "the listing worked";
    EXPECT_EQ(descriptors.find("app.lock"), std::string::npos) << descriptors;
}

} // namespace
} // namespace tidewell
