#include "e2e/EndToEndTest.h"

#include <algorithm>
#include <memory>
#include <sys/stat.h>

namespace tidewell::testing {
namespace {

using ConcurrentAddsTest = EndToEndTest;

// Every add reads, changes and writes the whole file; none may lose another's record. A FIFO
// named like an icon, which would block whoever opens it, holds up neither its own add nor
// the others.
TEST_F(ConcurrentAddsTest, HundredSimultaneousAddsOfDifferentFoldersKeepEveryRecord) {
    std::vector<std::string> folders;
    std::vector<std::unique_ptr<ChildProcess>> processes;
    for (int index = 0; index < 100; ++index) {
        folders.push_back(project("p" + std::to_string(index)));
        if (index % 10 == 0) {
            ASSERT_EQ(::mkfifo((folders.back() + "/logo.png").c_str(), 0600), 0);
        }
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
