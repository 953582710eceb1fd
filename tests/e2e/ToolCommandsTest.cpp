#include "core/items/InternetDate.h"
#include "core/items/ItemsJson.h"
#include "e2e/EndToEndTest.h"

#include <filesystem>

namespace tidewell::testing {
namespace {

using std::chrono::seconds;

// A 32 x 32 icon: the header and directory entry of an .ico file and a few pixel bytes.
const std::string favicon("\0\0\1\0\1\0\x20\x20\0\0\1\0\x20\0\x04\0\0\0\x16\0\0\0PIXL", 26);

const std::string usageText = "tide - put terminal projects in your MacBook notch\n"
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

// The items file of the folder "web"; the values in angle brackets vary.
const std::string webFile = R"([
  {
    "createdAt" : "<created>",
    "iconPath" : "<icon>",
    "id" : "<id>",
    "initials" : "<initials>",
    "isFavorite" : <favorite>,
    "lastOpenedAt" : "<opened>",
    "launchCommand" : "<command>",
    "name" : "<name>",
    "path" : "<path>",
    "tintHex" : "#A45CC2"
  }
])";

// A record for a folder that does not exist, written by the test rather than the tool.
NotchItem record(const std::string& name, bool isFavorite, const std::string& lastOpenedAt,
                 Uuid id = Uuid::random()) {
    return {.id = id,
            .name = name,
            .path = "/projects/" + name,
            .initials = NotchItem::makeInitials(name),
            .tintHex = "#2FA57C",
            .isFavorite = isFavorite,
            .createdAt = *InternetDate::parse("2025-01-01T08:00:00Z"),
            .lastOpenedAt = *InternetDate::parse(lastOpenedAt)};
}

using ToolCommandsTest = EndToEndTest;

TEST_F(ToolCommandsTest, DotRecordsTheFolderWithItsIconAndAddPinsTheSameRecordWithTheOptions) {
    const std::string web = project("web");
    root.write("projects/web/public/favicon.ico", favicon);
    expectResult(tide({"."}, web), "Added to recent: web\n", "", 0);
    const std::vector<NotchItem> recent = storedItems();
    ASSERT_EQ(recent.size(), 1u);
    EXPECT_EQ(recent[0].lastOpenedAt - recent[0].createdAt, seconds(2));
    const std::string id = recent[0].id.text();
    EXPECT_EQ(entries(dataFolder() + "/Icons"), std::vector<std::string>{id + ".ico"});
    EXPECT_EQ(readFile(dataFolder() + "/Icons/" + id + ".ico"), favicon);
    const auto expectedFile = [&](const NotchItem& stored,
                                  std::map<std::string, std::string> values) {
        values.insert({{"<created>", InternetDate::format(recent[0].createdAt)},
                       {"<icon>", dataFolder() + "/Icons/" + id + ".ico"},
                       {"<id>", id},
                       {"<opened>", InternetDate::format(stored.lastOpenedAt)},
                       {"<path>", web}});
        return filled(webFile, values);
    };
    EXPECT_EQ(itemsFileBytes(), expectedFile(recent[0], {{"<initials>", "WE"},
                                                         {"<favorite>", "false"},
                                                         {"<command>", ""},
                                                         {"<name>", "web"}}));

    expectResult(tide({"add", ".", "--name", "Studio", "--command", "npm run dev"}, web),
                 "Pinned: Studio\n", "", 0);
    const std::vector<NotchItem> pinned = storedItems();
    ASSERT_EQ(pinned.size(), 1u);
    EXPECT_GE(pinned[0].lastOpenedAt, recent[0].lastOpenedAt);
    EXPECT_EQ(itemsFileBytes(), expectedFile(pinned[0], {{"<initials>", "ST"},
                                                         {"<favorite>", "true"},
                                                         {"<command>", "npm run dev"},
                                                         {"<name>", "Studio"}}));
    expectResult(tide({"list"}, web), "* Studio\t" + web + "\n", "", 0);
}

TEST_F(ToolCommandsTest, ListShowsMostRecentlyOpenedFirstAndKeepsFileOrderForEqualTimes) {
    const std::string folder = project("anywhere");
    expectResult(tide({"list"}, folder), "", "", 0);
    EXPECT_FALSE(readFile(itemsFile())) << "listing must not create the file";

    writeItemsFile(ItemsJson::encode({record("Alpha", false, "2025-02-01T10:00:00Z"),
                                      record("Bravo", true, "2025-02-01T12:00:00Z"),
                                      record("Charlie", true, "2025-02-01T11:00:00Z"),
                                      record("Delta", false, "2025-02-01T11:00:00Z")}));
    expectResult(tide({"list", "ignored"}, folder),
                 "* Bravo\t/projects/Bravo\n"
                 "* Charlie\t/projects/Charlie\n"
                 "- Delta\t/projects/Delta\n"
                 "- Alpha\t/projects/Alpha\n",
                 "", 0);
}

TEST_F(ToolCommandsTest, RemoveMatchesNamesInAnyCaseAndUpperCaseIdPrefixes) {
    const NotchItem studio = record("Studio", true, "2025-02-01T10:00:00Z");
    const NotchItem alpha = record("Alpha", false, "2025-02-01T10:00:00Z",
                                   *Uuid::parse("A1B2C3D4-0000-4000-8000-000000000002"));
    const NotchItem upperX = record("X", false, "2025-02-01T10:00:00Z");
    const NotchItem lowerX = record("x", false, "2025-02-01T10:00:00Z");
    const NotchItem accented = record("\u00c6r\u00f8", false, "2025-02-01T10:00:00Z");
    const std::vector<NotchItem> all = {studio, alpha, upperX, lowerX, accented};
    writeItemsFile(ItemsJson::encode(all));
    const std::string usage = "Usage: tide remove <name-or-id>\n";
    const struct {
        std::vector<std::string> arguments;
        std::string errors;
        int status;
        std::vector<NotchItem> left;
    } steps[] = {
        {{"remove"}, usage, 2, all},
        {{"remove", ""}, usage, 2, all},
        {{"remove", "Nothing"}, "No item matched Nothing\n", 1, all},
        {{"remove", "a1b2c3d4"}, "No item matched a1b2c3d4\n", 1, all},
        {{"remove", "sTUDIO", "Alpha"}, "", 0, {alpha, upperX, lowerX, accented}},
        {{"remove", "A1B2C3D4"}, "", 0, {upperX, lowerX, accented}},
        {{"remove", "\u00e6r\u00d8"}, "", 0, {upperX, lowerX}},
        {{"remove", "x"}, "", 0, {}},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.arguments.back());
        expectResult(tide(step.arguments, project("anywhere")), "", step.errors, step.status);
        EXPECT_EQ(itemsFileBytes(), ItemsJson::encode(step.left));
    }
}

TEST_F(ToolCommandsTest, HelpVersionAndLoginStatusPrintTheirText) {
    const struct {
        std::vector<std::string> arguments;
        std::string out;
    } commands[] = {
        {{"help", "extra"}, usageText},
        {{"--help"}, usageText},
        {{"-h"}, usageText},
        {{"--version"}, "tide " TIDEWELL_VERSION "\n"},
        // The build folder is no install prefix, so there is nothing to register at login.
        {{"login-status"}, "not found\n"},
    };
    for (const auto& command : commands) {
        SCOPED_TRACE(command.arguments.front());
        expectResult(tide(command.arguments, project("anywhere")), command.out, "", 0);
    }
    EXPECT_FALSE(readFile(itemsFile()));
}

// Which icons are copied is the unit tests' matter; here is what the command reports.
TEST_F(ToolCommandsTest, CacheIconsCopiesIconsFromOutsideTheCacheAndCountsThem) {
    const std::string folder = project("logo-app");
    NotchItem logo = record("Logo", true, "2025-02-01T10:00:00Z");
    logo.iconPath = root.write("projects/logo-app/logo.PNG", "not really a png");
    writeItemsFile(ItemsJson::encode({logo}));

    expectResult(tide({"cache-icons"}, folder), "Cached 1 project icon\n", "", 0);
    logo.iconPath = dataFolder() + "/Icons/" + logo.id.text() + ".png";
    EXPECT_EQ(itemsFileBytes(), ItemsJson::encode({logo}));
    EXPECT_EQ(readFile(*logo.iconPath), "not really a png");
    expectResult(tide({"cache-icons"}, folder), "Cached 0 project icons\n", "", 0);
}

// The desktop's opener is replaced by a script that notes its arguments and fails with 3.
TEST_F(ToolCommandsTest, OpenRecordsTheFolderAndReturnsTheOpenersStatus) {
    const std::string opened = root.path() + "/opened";
    const std::string opener = root.write(
        "fake-bin/xdg-open", "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + opened + "'\nexit 3\n");
    std::filesystem::permissions(opener, std::filesystem::perms::owner_all);
    const std::string web = project("web");
    const auto tideOpen = [&](const std::string& folder) {
        ChildProcess::Launch command = launch(tidePath(), {"open", folder}, web);
        command.environment["PATH"] = root.path() + "/fake-bin:" + command.environment["PATH"];
        return ChildProcess::run(command);
    };

    expectResult(tideOpen("missing"), "", "Path does not exist: " + web + "/missing\n", 2);
    EXPECT_FALSE(readFile(opened));
    EXPECT_FALSE(readFile(itemsFile()));

    expectResult(tideOpen("."), "Added to recent: web\n", "", 3);
    EXPECT_EQ(readFile(opened), web + "\n");
    ASSERT_EQ(storedItems().size(), 1u);
    EXPECT_EQ(storedItems()[0].path, web);
}

} // namespace
} // namespace tidewell::testing
