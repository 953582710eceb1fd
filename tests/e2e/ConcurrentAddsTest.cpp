#include "core/items/ItemsJson.h"
#include "e2e/EndToEndTest.h"

#include <algorithm>
#include <memory>

namespace tidewell::testing {
namespace {

using ConcurrentAddsTest = EndToEndTest;

// Every add reads, changes and writes the whole file; none may lose another's record.
TEST_F(ConcurrentAddsTest, HundredSimultaneousAddsOfDifferentFoldersKeepEveryRecord) {
    constexpr int count = 100;
    std::vector<std::string> folders;
    std::vector<std::unique_ptr<ChildProcess>> processes;
    for (int index = 0; index < count; ++index) {
        folders.push_back(project("p" + std::to_string(index)));
        processes.push_back(
            std::make_unique<ChildProcess>(tideLaunch({"add", folders.back()}, root.path())));
    }
    for (int index = 0; index < count; ++index) {
        const ProcessResult result = processes[index]->wait(std::chrono::seconds(30));
        EXPECT_EQ(result.standardOutput, "Pinned: p" + std::to_string(index) + "\n");
        EXPECT_EQ(result.standardError, "");
        EXPECT_EQ(result.status, 0);
    }

    const auto items = ItemsJson::decode(itemsFileBytes());
    ASSERT_TRUE(items.has_value());
    std::vector<std::string> storedPaths;
    for (const NotchItem& item : *items)
        storedPaths.push_back(item.path);
    std::sort(storedPaths.begin(), storedPaths.end());
    std::sort(folders.begin(), folders.end());
    EXPECT_EQ(storedPaths, folders);
}

} // namespace
} // namespace tidewell::testing
