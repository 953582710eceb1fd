#include "core/items/ItemsJson.h"
#include "e2e/EndToEndTest.h"

#include <filesystem>

namespace tidewell::testing {
namespace {

namespace fs = std::filesystem;

using BadInputTest = EndToEndTest;

// How the items file escapes odd text is pinned by the unit tests of its writer; here the
// text comes back whole, text that is not UTF-8 is refused, and link loops are no folders.
TEST_F(BadInputTest, LinkLoopsOddAndInvalidTextAreHandledAndTheFileIsKept) {
    const std::string loops = project("loops");
    fs::create_symlink("loop-b", loops + "/loop-a");
    fs::create_symlink("loop-a", loops + "/loop-b");
    fs::create_symlink("self", loops + "/self");
    root.makeFolder("projects/loops/assets/deeper");
    fs::create_directory_symlink("../..", loops + "/assets/deeper/up");
    root.makeFolder("projects/loops/secret/inside");
    fs::permissions(loops + "/secret", fs::perms::none);
    expectResult(tide({"add", "loop-a"}, loops), "", "Path does not exist: " + loops + "/loop-a\n",
                 2);
    expectResult(tide({"self"}, loops), "", "Path does not exist: " + loops + "/self\n", 2);
    EXPECT_FALSE(readFile(itemsFile()));
    expectResult(tide({"add", "."}, loops), "Pinned: loops\n", "", 0);

    const std::string name = "it's \"quoted\" back\\slash\nline";
    const std::string odd = project(name);
    expectResult(tide({"add", "."}, odd), "Pinned: " + name + "\n", "", 0);
    const std::vector<NotchItem> stored = storedItems();
    ASSERT_EQ(stored.size(), 2u);
    EXPECT_EQ(stored[0].path, loops);
    EXPECT_EQ(stored[1].name, name);
    EXPECT_EQ(stored[1].path, odd);
    EXPECT_NE(tide({"list"}, odd).standardOutput.find("* " + name + "\t" + odd + "\n"),
              std::string::npos);

    const std::string before = itemsFileBytes();
    expectResult(tide({"add", "."}, project("caf\xE9")), "",
                 "tide: The path " + root.path() +
                     "/projects/caf\\xE9 is not valid UTF-8, so it cannot be stored.\n",
                 1);
    expectResult(tide({"add", ".", "--name", "\xFF\xFE"}, odd), "",
                 "tide: The name \\xFF\\xFE is not valid UTF-8, so it cannot be stored.\n", 1);
    EXPECT_EQ(itemsFileBytes(), before);
}

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
    const ProcessResult listed = run({"list"});
    EXPECT_EQ(listed.status, 0);
    EXPECT_TRUE(listed.standardOutput == expectedList) << "the list differs";
    expectResult(run({"add", "."}), "Pinned: one-more\n", "", 0);
    // The new record is the most recently created, so it comes last, after all the others.
    EXPECT_TRUE(itemsFileBytes().starts_with(before.substr(0, before.size() - 2) + ",\n"))
        << "the earlier records changed";
    const std::vector<NotchItem> after = storedItems();
    ASSERT_EQ(after.size(), items.size() + 1);
    EXPECT_EQ(after.back().path, folder);
}

} // namespace
} // namespace tidewell::testing
