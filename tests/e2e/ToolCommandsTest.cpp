#include "core/items/InternetDate.h"
#include "e2e/EndToEndTest.h"

#include <regex>
#include <tuple>

namespace tidewell::testing {
namespace {

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

// The desktop's opener is replaced by a script that notes its arguments and fails with 3. Each
// command has ended before the next starts, and the next one's handshake with the daemon takes
// a round trip, by which time the daemon has passed on all that earlier ones sent: once the
// closing marker is in, every signal of the commands before it is in too.
TEST_F(ToolCommandsTest, AUserRecordsPinsOpensAndCachesFoldersAndOnlySavesAreAnnounced) {
    const PostedSignals signals(environment());
    const std::string web = project("web");
    const std::string site = project("site");
    root.write("projects/web/public/favicon.ico", favicon);
    // Links in loops are no folders; the icon search passes a loop and an unreadable folder by.
    std::filesystem::create_symlink("loop-b", web + "/loop-a");
    std::filesystem::create_symlink("loop-a", web + "/loop-b");
    std::filesystem::create_symlink("self", web + "/self");
    std::filesystem::create_directory_symlink("../..", project("web/assets/deeper") + "/up");
    project("web/secret/inside");
    std::filesystem::permissions(web + "/secret", std::filesystem::perms::none);
    const std::string opened = root.path() + "/opened";
    std::filesystem::permissions(
        root.write("fake-bin/xdg-open",
                   "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + opened + "'\nexit 3\n"),
        std::filesystem::perms::owner_all);
    const std::map<std::string, std::string> fakeOpener = {
        {"PATH", root.path() + "/fake-bin:" + environment().at("PATH")}};
    const std::string missing = "Path does not exist: " + web + "/";
    walk({{{"list"}, ""},
          {{"help", "extra"}, usageText},
          {{"--help"}, usageText},
          {{"-h"}, usageText},
          {{"--version"}, "tide " TIDEWELL_VERSION "\n"},
          // The build folder is no install prefix, so there is nothing to register at login.
          {{"login-status"}, "not found\n"},
          {{"open", "missing"}, "", missing + "missing\n", 2},
          {{"add", "loop-a"}, "", missing + "loop-a\n", 2},
          {{"self"}, "", missing + "self\n", 2},
          {{"remove", "web"}, "", "No item matched web\n", 1}},
         web, fakeOpener);
    EXPECT_FALSE(readFile(itemsFile())) << "made before the first save";
    EXPECT_FALSE(readFile(opened));

    walk({{{"."}, "Added to recent: web\n"},
          {{"add", ".", "--name", "Studio", "--command", "npm run dev"}, "Pinned: Studio\n"},
          {{"list"}, "* Studio\t" + web + "\n"},
          {{"open", site}, "Added to recent: site\n", "", 3}},
         web, fakeOpener);
    const std::vector<NotchItem> stored = storedItems();
    ASSERT_EQ(stored.size(), 2u);
    // The name and folder are listed above; initials and tint are the unit tests' matter.
    const std::string id = stored[0].id.text();
    const std::string icon = dataFolder() + "/Icons/" + id + ".ico";
    EXPECT_EQ(std::tuple(stored[0].iconPath, stored[0].launchCommand, stored[0].isFavorite),
              std::tuple(icon, "npm run dev", true));
    EXPECT_EQ(entries(dataFolder() + "/Icons"), std::vector<std::string>{id + ".ico"});
    EXPECT_EQ(readFile(icon), favicon);
    EXPECT_EQ(stored[1].path, site);

    EXPECT_EQ(readFile(opened), site + "\n");

    // Which icons are copied is the unit tests' matter; here is what the command reports.
    NotchItem logo = record("Logo", true, "2025-02-01T10:00:00Z");
    logo.iconPath = root.write("projects/site/logo.PNG", "not really a png");
    writeItemsFile(ItemsJson::encode({logo}));
    walk({{{"cache-icons"}, "Cached 1 project icon\n"}}, web);
    logo.iconPath = dataFolder() + "/Icons/" + logo.id.text() + ".png";
    EXPECT_EQ(itemsFileBytes(), ItemsJson::encode({logo}));
    EXPECT_EQ(readFile(*logo.iconPath), "not really a png");
    walk({{{"cache-icons"}, "Cached 0 project icons\n"}}, web);

    ChildProcess::run(launch("dbus-send",
                             {"--session", "--type=signal", "/com/quorvel/tidewell",
                              "com.quorvel.tidewell.Notifications.Posted", "string:marker"},
                             home));
    ASSERT_TRUE(signals.waitFor("marker"));
    const std::string saved = "Tidewell.itemsChanged";
    EXPECT_EQ(signals.received(),
              (std::vector<std::string>{saved, saved, saved, saved, saved, "marker"}));
}

// An undecodable file lists as empty and is kept, under a name that says when it was made, once
// the next save replaces it. Names match in any case, ids by an upper-case prefix; only the
// first word is looked for.
TEST_F(ToolCommandsTest, DamagedFilesAreKeptListShowsTheMostRecentFirstAndRemoveMatchesNames) {
    const std::string damaged("[{\"id\": \0\xFF", 10);
    writeItemsFile(damaged);
    // Odd text comes back whole; text that is not UTF-8 is refused.
    const std::string name = "it's \"quoted\" back\\slash\nline";
    const std::string odd = project(name);
    project("caf\xE9");
    const auto notUtf8 = [](const std::string& text) {
        return "tide: The " + text + " is not valid UTF-8, so it cannot be stored.\n";
    };
    walk({{{"list"}, ""},
          {{"add", "../caf\xE9"}, "", notUtf8("path " + root.path() + "/projects/caf\\xE9"), 1},
          {{"add", ".", "--name", "\xFF\xFE"}, "", notUtf8("name \\xFF\\xFE"), 1},
          {{"add", "."}, "Pinned: " + name + "\n"}},
         odd);
    const NotchItem added = storedItems().at(0);
    EXPECT_EQ(std::pair(added.path, added.name), std::pair(odd, name));
    const std::vector<std::string> names = entries(dataFolder());
    ASSERT_EQ(names.size(), 3u); // items.json, the kept copy and items.lock
    EXPECT_TRUE(std::regex_match(names[1], std::regex(R"(items\.json\.corrupt-\d{8}T\d{6}Z)")))
        << names[1];
    EXPECT_EQ(readFile(dataFolder() + "/" + names[1]), damaged);

    const NotchItem alpha = record("Alpha", false, "2025-02-01T10:00:00Z",
                                   *Uuid::parse("A1B2C3D4-0000-4000-8000-000000000002"));
    const NotchItem bravo = record("Bravo", true, "2025-02-01T12:00:00Z");
    const NotchItem charlie = record("Charlie", true, "2025-02-01T11:00:00Z");
    const NotchItem delta = record("Delta", false, "2025-02-01T11:00:00Z");
    const NotchItem upperX = record("X", false, "2025-02-01T10:00:00Z");
    const NotchItem lowerX = record("x", false, "2025-02-01T10:00:00Z");
    const NotchItem accented = record("\u00c6r\u00f8", false, "2025-02-01T10:00:00Z");
    const std::vector<NotchItem> all = {alpha, bravo, charlie, delta, upperX, lowerX, accented};
    writeItemsFile(ItemsJson::encode(all));
    const std::string usage = "Usage: tide remove <name-or-id>\n";
    const struct {
        Step step;
        std::vector<NotchItem> left;
    } steps[] = {
        {{{"remove"}, "", usage, 2}, all},
        {{{"remove", ""}, "", usage, 2}, all},
        {{{"remove", "a1b2c3d4"}, "", "No item matched a1b2c3d4\n", 1}, all},
        {{{"remove", "\u00e6r\u00d8"}}, {alpha, bravo, charlie, delta, upperX, lowerX}},
        {{{"remove", "x"}}, {alpha, bravo, charlie, delta}},
        // Equally recent items keep the order of the file.
        {{{"list", "ignored"},
          "* Bravo\t/projects/Bravo\n* Charlie\t/projects/Charlie\n"
          "- Delta\t/projects/Delta\n- Alpha\t/projects/Alpha\n"},
         {alpha, bravo, charlie, delta}},
        {{{"remove", "bRAVO", "Alpha"}}, {alpha, charlie, delta}},
        {{{"remove", "A1B2C3D4"}}, {charlie, delta}},
    };
    for (const auto& [step, left] : steps) {
        SCOPED_TRACE(step.arguments.back());
        expectResult(tide(step.arguments, project("anywhere")), step.out, step.errors, step.status);
        EXPECT_EQ(itemsFileBytes(), ItemsJson::encode(left));
    }
}

} // namespace
} // namespace tidewell::testing
