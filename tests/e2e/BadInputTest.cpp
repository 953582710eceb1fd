#include "e2e/EndToEndTest.h"
#include "e2e/ItemsFileText.h"

#include <filesystem>

namespace tidewell::testing {
namespace {

using std::filesystem::create_directory_symlink;
using std::filesystem::create_symlink;

using BadInputTest = EndToEndTest;

TEST_F(BadInputTest, LinkLoopsAndUnreadableFoldersInsideAProjectDoNotStopTheAdd) {
    const std::string loops = project("loops");
    create_symlink(loops + "/b", loops + "/a");
    create_symlink(loops + "/a", loops + "/b");
    create_symlink("self", loops + "/self");
    root.makeFolder("projects/loops/assets/deeper");
    create_directory_symlink("../..", loops + "/assets/deeper/up");
    root.makeFolder("projects/loops/secret/inside");
    std::filesystem::permissions(loops + "/secret", std::filesystem::perms::none);

    expectResult(tide({"add", "."}, loops), "Pinned: loops\n", "", 0);
    EXPECT_EQ(stringValues(itemsFileBytes(), "path"), std::vector<std::string>{jsonEscaped(loops)});
}

TEST_F(BadInputTest, APathThatIsALinkLoopDoesNotExist) {
    const std::string projects = root.makeFolder("projects");
    create_symlink("loop-b", projects + "/loop-a");
    create_symlink("loop-a", projects + "/loop-b");
    create_symlink("self", projects + "/self");

    expectResult(tide({"add", "loop-a"}, projects), "",
                 "Path does not exist: " + projects + "/loop-a\n", 2);
    expectResult(tide({"self"}, projects), "", "Path does not exist: " + projects + "/self\n", 2);
    expectResult(tide({"open", "./self/"}, projects), "",
                 "Path does not exist: " + projects + "/self\n", 2);
    EXPECT_FALSE(readFile(itemsFile()));
}

TEST_F(BadInputTest, QuotesBackslashesAndLineFeedsInAPathAreStoredEscapedAndListedRaw) {
    const std::string name = "it's \"quoted\" back\\slash\nline";
    const std::string folder = project(name);

    expectResult(tide({"add", "."}, folder), "Pinned: " + name + "\n", "", 0);
    const std::string text = itemsFileBytes();
    ASSERT_EQ(stringValues(text, "id").size(), 1u);
    const std::string createdAt = stringValues(text, "createdAt")[0];
    EXPECT_EQ(text, itemsFileText({{.createdAt = createdAt,
                                    .id = stringValues(text, "id")[0],
                                    .initials = "IS",
                                    .isFavorite = true,
                                    .lastOpenedAt = createdAt,
                                    .name = name,
                                    .path = folder,
                                    .tintHex = "#2FA57C"}}));
    EXPECT_NE(text.find(R"(it's \"quoted\" back\\slash\nline)"), std::string::npos);

    expectResult(tide({"list"}, folder), "* " + name + "\t" + folder + "\n", "", 0);
}

TEST_F(BadInputTest, TextThatIsNotUtf8IsRefusedAndTheFileIsKept) {
    const std::string good = project("good");
    ASSERT_EQ(tide({"add", "."}, good).status, 0);
    const std::string before = itemsFileBytes();
    const std::string bad = project("caf\xE9");

    expectResult(tide({"add", "."}, bad), "",
                 "tide: The path " + root.path() +
                     "/projects/caf\\xE9 is not valid UTF-8, so it cannot be stored.\n",
                 1);
    expectResult(tide({"add", ".", "--name", "\xFF\xFE"}, good), "",
                 "tide: The name \\xFF\\xFE is not valid UTF-8, so it cannot be stored.\n", 1);
    EXPECT_EQ(itemsFileBytes(), before);
}

// Twenty thousand records of realistic size make a file of more than 10 MB.
TEST_F(BadInputTest, AHugeItemsFileIsListedAndKeepsEveryRecordWhenOneIsAdded) {
    constexpr std::size_t count = 20000;
    std::vector<StoredItem> items;
    for (std::size_t index = 0; index < count; ++index)
        items.push_back(generatedItem(index));
    const std::string before = itemsFileText(items);
    ASSERT_GT(before.size(), 10u * 1000 * 1000);
    writeItemsFile(before);
    const std::string folder = project("one-more");

    std::string expectedList;
    for (std::size_t index = count; index-- > 0;)
        expectedList += (items[index].isFavorite ? "* " : "- ") + items[index].name + "\t" +
                        items[index].path + "\n";
    const ProcessResult listed =
        ChildProcess::run(tideLaunch({"list"}, folder), std::chrono::seconds(20));
    EXPECT_FALSE(listed.timedOut);
    EXPECT_EQ(listed.status, 0);
    EXPECT_TRUE(listed.standardOutput == expectedList) << "the list differs";

    const ProcessResult added =
        ChildProcess::run(tideLaunch({"add", "."}, folder), std::chrono::seconds(20));
    expectResult(added, "Pinned: one-more\n", "", 0);
    // The new record is the most recently created, so it comes last, after all the others.
    const std::string after = itemsFileBytes();
    const std::string kept = before.substr(0, before.size() - 2) + ",\n  {\n";
    EXPECT_TRUE(after.starts_with(kept)) << "the earlier records changed";
    EXPECT_EQ(stringValues(after.substr(kept.size() - 5), "path"),
              std::vector<std::string>{jsonEscaped(folder)});
}

} // namespace
} // namespace tidewell::testing
