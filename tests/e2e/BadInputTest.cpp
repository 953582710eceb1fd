#include "e2e/EndToEndTest.h"

#include <sys/stat.h>
#include <unistd.h>

namespace tidewell::testing {
namespace {

using BadInputTest = EndToEndTest;

// Twenty thousand records of realistic size make a file of more than 10 MB.
TEST_F(BadInputTest, AHugeItemsFileIsListedAndKeepsEveryRecordWhenOneIsAdded) {
    std::vector<NotchItem> items;
    std::string expectedList;
    for (int index = 0; index < 20000; ++index) {
        const std::string name = "project-" + std::to_string(index);
        const Uuid id = Uuid::random();
        items.push_back(
            {.id = id,
             .name = name,
             .path = "/home/someone/work/clients/acme-corporation/repositories/" + name,
             .iconPath = "/home/someone/.local/share/Tidewell/Icons/" + id.text() + ".png",
             .initials = "PR",
             .tintHex = "#5E7CE2",
             .launchCommand = "npm run dev -- --port 3000 --host 127.0.0.1",
             .isFavorite = index % 3 == 0,
             .createdAt = Date(std::chrono::seconds(1704067200 + index)),
             .lastOpenedAt = Date(std::chrono::seconds(1704167200 + index))});
    }
    for (auto item = items.rbegin(); item != items.rend(); ++item)
        expectedList += (item->isFavorite ? "* " : "- ") + item->name + "\t" + item->path + "\n";
    const std::string before = ItemsJson::encode(items);
    ASSERT_GT(before.size(), 10u * 1000 * 1000);
    writeItemsFile(before);
    const std::string folder = project("one-more");

    const auto run = [&](const std::vector<std::string>& arguments) {
        return ChildProcess::run(launch(tidePath(), arguments, folder), std::chrono::seconds(20));
    };
    EXPECT_TRUE(run({"list"}).standardOutput == expectedList) << "the list differs";
    expectResult(run({"add", "."}), "Pinned: one-more\n", "", 0);
    // The new record is the most recently created, so it comes last, after all the others.
    EXPECT_TRUE(itemsFileBytes().starts_with(before.substr(0, before.size() - 2) + ",\n"))
        << "the earlier records changed";
    const std::vector<NotchItem> after = storedItems();
    ASSERT_EQ(after.size(), items.size() + 1);
    EXPECT_EQ(after.back().path, folder);
}

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

    std::vector<std::string> pinned = pinnedFolders();
    std::ranges::sort(pinned);
    std::ranges::sort(folders);
    EXPECT_EQ(pinned, folders);
}

// Tests may run as root, whom permission bits do not stop: every case here stops root too. The
// tool runs in a mount namespace of its own, with the data folder mounted read-only.
using UnwritableDataFolderTest = EndToEndTest;

TEST_F(UnwritableDataFolderTest, ADataFolderBelowAFileOrReadOnlyFailsEverySaveAndKeepsTheItems) {
    const std::string file = root.write("plain-file", "not a folder");
    const std::string failed =
        "tide: Cannot create the folder " + file + "/data/Tidewell: Not a directory\n";
    walk({{{"add", "."}, "", failed, 1},
          {{"remove", "web"}, "", failed, 1},
          {{"cache-icons"}, "", failed, 1}},
         project("web"), {{"XDG_DATA_HOME", file + "/data"}});
    EXPECT_EQ(readFile(file), "not a folder");

    const auto runWithReadOnly = [](const std::string& folder, ChildProcess::Launch command) {
        std::vector<std::string> wrapped = {
            "unshare", "--mount", "sh", "-c", R"(mount --bind -o ro "$0" "$0" && exec "$@")",
            folder};
        // A user without the right to mount gets it inside a user namespace of its own.
        if (::geteuid() != 0)
            wrapped.insert(wrapped.begin() + 1, "--map-root-user");
        command.arguments.insert(command.arguments.begin(), wrapped.begin(), wrapped.end());
        return ChildProcess::run(command);
    };
    if (runWithReadOnly(root.path(), launch("true", {}, root.path())).status != 0)
        GTEST_SKIP() << "this machine allows no mount namespace";
    ASSERT_EQ(tide({"add", "."}, project("kept")).status, 0);
    const std::string before = itemsFileBytes();

    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"add", "."}, {"remove", "kept"}})
        expectResult(runWithReadOnly(dataFolder(), launch(tidePath(), arguments, project("web"))),
                     "",
                     "tide: Cannot open the lock file " + dataFolder() +
                         "/items.lock: Read-only file system\n",
                     1);
    EXPECT_EQ(itemsFileBytes(), before);
    EXPECT_EQ(entries(dataFolder()), (std::vector<std::string>{"items.json", "items.lock"}));
}

} // namespace
} // namespace tidewell::testing
