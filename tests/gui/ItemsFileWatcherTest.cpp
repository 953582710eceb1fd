#include "gui/app/ItemsFileWatcher.h"

#include "core/notify/NotificationNames.h"
#include "gui/TestDesktop.h"
#include "linux/PosixFileSystem.h"

#include <fstream>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using testing::processEventsUntil;
using namespace std::chrono_literals;

TEST(ItemsFileWatcher, PostsForEachNewVersionOfTheItemsFileWrittenInPlaceOrReplaced) {
    testing::TemporaryDirectory root;
    const DataFolder folder(UserPaths{.home = root.path(), .applicationSupport = root.path()});
    root.makeFolder("Tidewell");
    NotificationCenter localCenter([](MainQueue::Task task) { task(); });
    int posts = 0;
    localCenter.addObserver(notchItemsChanged, [&] { ++posts; });
    ItemsFileWatcher watcher(folder, localCenter);
    PosixFileSystem files;

    files.writeFileAtomically(folder.itemsFile(), "[]");
    EXPECT_TRUE(processEventsUntil([&] { return posts == 1; })) << "created by a rename";
    std::ofstream(folder.itemsFile(), std::ios::app) << "\n";
    EXPECT_TRUE(processEventsUntil([&] { return posts == 2; })) << "written in place";
    files.writeFileAtomically(folder.itemsFile(), "[ ]");
    EXPECT_TRUE(processEventsUntil([&] { return posts == 3; })) << "replaced by a rename";
    std::ofstream(folder.itemsFile(), std::ios::app) << "\n";
    EXPECT_TRUE(processEventsUntil([&] { return posts == 4; })) << "the new file is watched";

    files.writeFileAtomically(folder.itemsLock(), "");
    files.createDirectories(folder.iconsFolder());
    EXPECT_FALSE(processEventsUntil([&] { return posts != 4; }, 300ms))
        << "other files in the folder are no news";
}

} // namespace
} // namespace tidewell
