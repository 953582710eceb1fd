#include "e2e/EndToEndTest.h"

#include <algorithm>
#include <memory>

namespace tidewell::testing {
namespace {

using ConcurrentAddsTest = EndToEndTest;

// Every add reads, changes and writes the whole file; none may lose another's record.
TEST_F(ConcurrentAddsTest, HundredSimultaneousAddsOfDifferentFoldersKeepEveryRecord) {
    std::vector<std::string> folders;
    std::vector<std::unique_ptr<ChildProcess>> processes;
    for (int index = 0; index < 100; ++index) {
        folders.push_back(project("p" + std::to_string(index)));
        processes.push_back(std::make_unique<ChildProcess>(
            launch(tidePath(), {"add", folders.back()}, root.path())));
    }
    for (std::size_t index = 0; index < processes.size(); ++index)
        expectResult(processes[index]->wait(std::chrono::seconds(30)),
                     "Pinned: p" + std::to_string(index) + "\n", "", 0);

    std::vector<std::string> storedPaths;
    for (const NotchItem& item : storedItems())
        storedPaths.push_back(item.path);
    std::sort(storedPaths.begin(), storedPaths.end());
    std::sort(folders.begin(), folders.end());
    EXPECT_EQ(storedPaths, folders);
}

} // namespace
} // namespace tidewell::testing
