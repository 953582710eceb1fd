#include "e2e/EndToEndTest.h"
#include "e2e/ItemsFileText.h"

namespace tidewell::testing {
namespace {

// A 32 x 32 icon: the header and directory entry of an .ico file and a few pixel bytes.
const std::string favicon("\0\0\1\0\1\0\x20\x20\0\0\1\0\x20\0\x04\0\0\0\x16\0\0\0PIXL", 26);

constexpr const char* usageText = "tide - put terminal projects in your MacBook notch\n"
                                  "\n"
                                  "  tide .                         Add this folder to Recent\n"
                                  "  tide add .                     Pin this folder\n"
                                  "  tide add . --name Studio       Pin with a custom name\n"
                                  "  tide add . --command \"npm run dev\"\n"
                                  "  tide open .                    Record and open this folder\n"
                                  "  tide show                      Reveal the shelf\n"
                                  "  tide login-status              Show launch-at-login status\n"
                                  "  tide cache-icons               Cache project icons locally\n"
                                  "  tide list                      List all items\n"
                                  "  tide remove <name-or-id>       Remove an item\n";

StoredItem item(std::string id, std::string name, bool isFavorite, std::string lastOpenedAt) {
    return {.createdAt = "2025-01-01T08:00:00Z",
            .id = std::move(id),
            .initials = name.substr(0, 1),
            .isFavorite = isFavorite,
            .lastOpenedAt = std::move(lastOpenedAt),
            .name = name,
            .path = "/projects/" + name,
            .tintHex = "#2FA57C"};
}

class ToolCommandsTest : public EndToEndTest {
protected:
    void writeItems(const std::vector<StoredItem>& items) const {
        writeItemsFile(itemsFileText(items));
    }
};

TEST_F(ToolCommandsTest, DotRecordsTheFolderAsRecentAndAddPinsTheSameRecord) {
    const std::string web = project("web");

    expectResult(tide({"."}, web), "Added to recent: web\n", "", 0);
    const std::string recent = itemsFileBytes();
    ASSERT_EQ(stringValues(recent, "id").size(), 1u);
    const std::string id = stringValues(recent, "id")[0];
    const std::string createdAt = stringValues(recent, "createdAt")[0];
    const std::string firstOpened = stringValues(recent, "lastOpenedAt")[0];
    EXPECT_EQ(epochSeconds(firstOpened) - epochSeconds(createdAt), 2);
    StoredItem expected{.createdAt = createdAt,
                        .id = id,
                        .initials = "WE",
                        .isFavorite = false,
                        .lastOpenedAt = firstOpened,
                        .name = "web",
                        .path = web,
                        .tintHex = "#A45CC2"};
    EXPECT_EQ(recent, itemsFileText({expected}));

    expectResult(tide({"add", "."}, web), "Pinned: web\n", "", 0);
    const std::string pinned = itemsFileBytes();
    ASSERT_EQ(stringValues(pinned, "lastOpenedAt").size(), 1u);
    expected.isFavorite = true;
    expected.lastOpenedAt = stringValues(pinned, "lastOpenedAt")[0];
    EXPECT_GE(epochSeconds(expected.lastOpenedAt), epochSeconds(firstOpened));
    EXPECT_EQ(pinned, itemsFileText({expected}));

    expectResult(tide({"list"}, web), "* web\t" + web + "\n", "", 0);
}

TEST_F(ToolCommandsTest, AddWithNameAndCommandStoresThemAndCachesTheProjectIcon) {
    const std::string studio = project("studio-app");
    root.write("projects/studio-app/public/favicon.ico", favicon);

    expectResult(tide({"add", ".", "--name", "Studio", "--command", "npm run dev"}, studio),
                 "Pinned: Studio\n", "", 0);

    const std::string text = itemsFileBytes();
    ASSERT_EQ(stringValues(text, "id").size(), 1u);
    const std::string id = stringValues(text, "id")[0];
    const std::string createdAt = stringValues(text, "createdAt")[0];
    const std::string icon = dataFolder() + "/Icons/" + id + ".ico";
    EXPECT_EQ(text, itemsFileText({{.createdAt = createdAt,
                                    .iconPath = icon,
                                    .id = id,
                                    .initials = "ST",
                                    .isFavorite = true,
                                    .lastOpenedAt = createdAt,
                                    .launchCommand = "npm run dev",
                                    .name = "Studio",
                                    .path = studio,
                                    .tintHex = "#4E91A8"}}));
    EXPECT_EQ(readFile(icon), favicon);
    EXPECT_EQ(entries(dataFolder() + "/Icons"), std::vector<std::string>{id + ".ico"});
}

TEST_F(ToolCommandsTest, ListShowsMostRecentlyOpenedFirstAndKeepsFileOrderForEqualTimes) {
    const std::string folder = project("anywhere");
    expectResult(tide({"list"}, folder), "", "", 0);
    EXPECT_FALSE(readFile(itemsFile())) << "listing must not create the file";

    writeItems(
        {item("00000000-0000-4000-8000-00000000000A", "Alpha", false, "2025-02-01T10:00:00Z"),
         item("00000000-0000-4000-8000-00000000000B", "Bravo", true, "2025-02-01T12:00:00Z"),
         item("00000000-0000-4000-8000-00000000000C", "Charlie", true, "2025-02-01T11:00:00Z"),
         item("00000000-0000-4000-8000-00000000000D", "Delta", false, "2025-02-01T11:00:00Z")});
    expectResult(tide({"list", "ignored"}, folder),
                 "* Bravo\t/projects/Bravo\n"
                 "* Charlie\t/projects/Charlie\n"
                 "- Delta\t/projects/Delta\n"
                 "- Alpha\t/projects/Alpha\n",
                 "", 0);
}

TEST_F(ToolCommandsTest, RemoveMatchesNamesInAnyCaseAndUpperCaseIdPrefixes) {
    const std::string folder = project("anywhere");
    const StoredItem studio =
        item("5D0C1E2F-0000-4000-8000-000000000001", "Studio", true, "2025-02-01T10:00:00Z");
    const StoredItem alpha =
        item("A1B2C3D4-0000-4000-8000-000000000002", "Alpha", false, "2025-02-01T10:00:00Z");
    const StoredItem upperX =
        item("B0000000-0000-4000-8000-000000000003", "X", false, "2025-02-01T10:00:00Z");
    const StoredItem lowerX =
        item("C0000000-0000-4000-8000-000000000004", "x", false, "2025-02-01T10:00:00Z");
    writeItems({studio, alpha, upperX, lowerX});
    const std::string before = itemsFileBytes();

    expectResult(tide({"remove"}, folder), "", "Usage: tide remove <name-or-id>\n", 2);
    expectResult(tide({"remove", ""}, folder), "", "Usage: tide remove <name-or-id>\n", 2);
    expectResult(tide({"remove", "Nothing"}, folder), "", "No item matched Nothing\n", 1);
    expectResult(tide({"remove", "a1b2c3d4"}, folder), "", "No item matched a1b2c3d4\n", 1);
    EXPECT_EQ(itemsFileBytes(), before);

    expectResult(tide({"remove", "sTUDIO", "Alpha"}, folder), "", "", 0);
    EXPECT_EQ(itemsFileBytes(), itemsFileText({alpha, upperX, lowerX}));
    expectResult(tide({"remove", "A1B2C3D4"}, folder), "", "", 0);
    EXPECT_EQ(itemsFileBytes(), itemsFileText({upperX, lowerX}));
    expectResult(tide({"remove", "x"}, folder), "", "", 0);
    EXPECT_EQ(itemsFileBytes(), "[\n\n]");
}

TEST_F(ToolCommandsTest, HelpVersionAndLoginStatusPrintTheirText) {
    const std::string folder = project("anywhere");
    for (const char* word : {"help", "--help", "-h"})
        expectResult(tide({word, "extra"}, folder), usageText, "", 0);
    expectResult(tide({"--version"}, folder), "tide " TIDEWELL_VERSION "\n", "", 0);
    // The build folder is no install prefix, so there is nothing to register at login.
    expectResult(tide({"login-status"}, folder), "not found\n", "", 0);
    EXPECT_FALSE(readFile(itemsFile()));
}

TEST_F(ToolCommandsTest, CacheIconsCopiesIconsFromOutsideTheCacheOnce) {
    const std::string folder = project("logo-app");
    const std::string logo = root.write("projects/logo-app/logo.PNG", "not really a png");
    StoredItem logoItem =
        item("D0000000-0000-4000-8000-000000000001", "Logo", true, "2025-02-01T10:00:00Z");
    logoItem.iconPath = logo;
    const StoredItem plain =
        item("E0000000-0000-4000-8000-000000000002", "Plain", true, "2025-02-01T10:00:00Z");
    writeItems({logoItem, plain});

    expectResult(tide({"cache-icons"}, folder), "Cached 1 project icon\n", "", 0);
    logoItem.iconPath = dataFolder() + "/Icons/D0000000-0000-4000-8000-000000000001.png";
    EXPECT_EQ(itemsFileBytes(), itemsFileText({logoItem, plain}));
    EXPECT_EQ(readFile(*logoItem.iconPath), "not really a png");
    EXPECT_EQ(readFile(logo), "not really a png");

    expectResult(tide({"cache-icons"}, folder), "Cached 0 project icons\n", "", 0);
    EXPECT_EQ(itemsFileBytes(), itemsFileText({logoItem, plain}));
}

} // namespace
} // namespace tidewell::testing
