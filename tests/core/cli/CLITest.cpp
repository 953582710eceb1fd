#include "core/cli/CLI.h"

#include "support/FakeLoginItemService.h"
#include "support/FakeProcessLauncher.h"
#include "support/ItemsFixture.h"

#include <filesystem>
#include <sstream>

namespace tidewell::testing {
namespace {

using std::chrono::seconds;

// The real file system, seen from a working directory of the test's choosing.
class WorkingDirectoryFileSystem : public PosixFileSystem {
public:
    std::string currentDirectory() const override { return workingDirectory; }
    std::string workingDirectory = "/";
};

class CLITest : public ItemsFixture {
protected:
    struct Result {
        int status;
        std::string out;
        std::string errors;
    };

    CLITest() { cwdFiles.workingDirectory = root.makeFolder("work/myProject"); }

    Result run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "tide");
        std::ostringstream out, errors;
        CLI cli({.database = database,
                 .launchAtLogin = launchAtLogin,
                 .launcher = launcher,
                 .files = cwdFiles,
                 .home = paths.home,
                 .applicationExecutable = "/opt/tidewell/bin/tidewell",
                 .version = "1.2.3",
                 .out = out,
                 .errors = errors});
        const int status = cli.run(arguments);
        return {status, out.str(), errors.str()};
    }
    NotchItem only() {
        const auto items = database.load();
        EXPECT_EQ(items.size(), 1u);
        return items.empty() ? NotchItem{} : items.front();
    }

    WorkingDirectoryFileSystem cwdFiles;
    FakeProcessLauncher launcher;
    FakeLoginItemService loginService;
    LaunchAgentManager launchAtLogin{files, loginService, paths, {}};
};

const std::string usage = "tide - put terminal projects in your MacBook notch\n"
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

TEST(CLIInvocation, OnlyARealFirstArgumentMakesAToolStart) {
    EXPECT_FALSE(CLI::isCLIInvocation({"tide"}));
    EXPECT_FALSE(CLI::isCLIInvocation({"tidewell", "-psn_0_12345"}));
    EXPECT_TRUE(CLI::isCLIInvocation({"tide", "help"}));
    EXPECT_TRUE(CLI::isCLIInvocation({"tide", "-psn"}));
}

TEST_F(CLITest, HelpPrintsTheUsageText) {
    for (const auto& word : {"help", "--help", "-h"}) {
        const Result result = run({word});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.out, usage);
        EXPECT_EQ(result.errors, "");
    }
    EXPECT_EQ(run({}).out, usage);
    EXPECT_EQ(run({"--version"}).out, "tide 1.2.3\n");
}

TEST_F(CLITest, DotRecordsTheWorkingFolderAsRecentAndAddPinsIt) {
    const Result recent = run({"."});
    EXPECT_EQ(recent.status, 0);
    EXPECT_EQ(recent.out, "Added to recent: myProject\n");
    EXPECT_FALSE(only().isFavorite);

    const Result pinned = run({"add", "."});
    EXPECT_EQ(pinned.out, "Pinned: myProject\n");
    EXPECT_TRUE(only().isFavorite);
    EXPECT_EQ(only().path, cwdFiles.workingDirectory);

    EXPECT_EQ(run({"open", "."}).out, "Added to recent: myProject\n");
    EXPECT_TRUE(only().isFavorite);
    EXPECT_EQ(run({"here"}).out, "Added to recent: myProject\n");
    EXPECT_EQ(run({"fav"}).out, "Pinned: myProject\n");
}

TEST_F(CLITest, OptionsNeedAValueOrCountAsTheFolder) {
    EXPECT_EQ(run({"add", "--name", "Studio", "--command", "npm run dev"}).out, "Pinned: Studio\n");
    EXPECT_EQ(only().launchCommand, "npm run dev");
    EXPECT_EQ(only().path, cwdFiles.workingDirectory);

    EXPECT_EQ(run({"add", ".", "--name"}).out, "Pinned: Studio\n");

    const Result dangling = run({"add", "--name"});
    EXPECT_EQ(dangling.status, 2);
    EXPECT_EQ(dangling.errors, "Path does not exist: " + cwdFiles.workingDirectory + "/--name\n");
    EXPECT_EQ(dangling.out, "");
}

TEST_F(CLITest, FoldersResolveFromHomeAndTheWorkingDirectory) {
    root.makeFolder("home/code");
    EXPECT_EQ(run({"add", "~/code"}).out, "Pinned: code\n");
    root.makeFolder("work/sibling");
    EXPECT_EQ(run({"add", "../sibling/"}).out, "Pinned: sibling\n");

    const Result missing = run({"nowhere"});
    EXPECT_EQ(missing.status, 2);
    EXPECT_EQ(missing.errors, "Path does not exist: " + cwdFiles.workingDirectory + "/nowhere\n");

    CLI::Services services{database, launchAtLogin, launcher, cwdFiles, paths.home, "",
                           "",       std::cout,     std::cerr};
    EXPECT_EQ(CLI(services).resolvedPath("~"), paths.home);
    EXPECT_EQ(CLI(services).resolvedPath(std::nullopt), cwdFiles.workingDirectory);
    EXPECT_EQ(CLI(services).resolvedPath("a//b/./c/.."), cwdFiles.workingDirectory + "/a/b");
}

TEST_F(CLITest, AnIconIsResolvedLikeAFolderAndCopiedIntoTheCache) {
    root.write("work/myProject/art/Logo.SVG", "<svg/>");
    run({"add", ".", "--icon", "art/Logo.SVG"});
    EXPECT_EQ(only().iconPath, folder.iconsFolder() + "/" + only().id.text() + ".svg");
}

TEST_F(CLITest, ListShowsTheMostRecentlyOpenedFirst) {
    EXPECT_EQ(run({"list"}).out, "");
    run({"add", "."});
    clock.advance(seconds(3));
    run({root.makeFolder("work/second")});
    const Result list = run({"list"});
    EXPECT_EQ(list.status, 0);
    EXPECT_EQ(list.out, "- second\t" + root.path() + "/work/second\n* myProject\t" +
                            cwdFiles.workingDirectory + "\n");
}

TEST_F(CLITest, RemoveMatchesNamesWithoutCaseAndIdsByUpperCasePrefix) {
    run({"add", root.makeFolder("a"), "--name", "X"});
    run({"add", root.makeFolder("b"), "--name", "x"});
    run({"add", root.makeFolder("c"), "--name", "Ærø"});
    const NotchItem keep = database.upsert({.path = root.makeFolder("d"), .name = "keep"});

    EXPECT_EQ(run({"remove", "x"}).status, 0);
    EXPECT_EQ(database.load().size(), 2u);
    EXPECT_EQ(run({"remove", "ærØ"}).status, 0);
    EXPECT_EQ(database.load().size(), 1u);

    const std::string prefix = keep.id.text().substr(0, 8);
    std::string lower = prefix;
    for (char& c : lower)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (lower != prefix) {
        const Result miss = run({"remove", lower});
        EXPECT_EQ(miss.status, 1);
        EXPECT_EQ(miss.errors, "No item matched " + lower + "\n");
    }
    EXPECT_EQ(run({"remove", prefix, "ignored"}).status, 0);
    EXPECT_TRUE(database.load().empty());
}

TEST_F(CLITest, RemoveRefusesAMissingOrEmptyQuery) {
    run({"add", "."});
    for (const auto& arguments : {std::vector<std::string>{"remove"}, {"remove", ""}}) {
        const Result result = run(arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.errors, "Usage: tide remove <name-or-id>\n");
    }
    EXPECT_EQ(database.load().size(), 1u);
}

TEST_F(CLITest, CacheIconsCountsTheCopies) {
    EXPECT_EQ(run({"cache-icons"}).out, "Cached 0 project icons\n");
    database.upsert({.path = cwdFiles.workingDirectory});
    database.modify([&](std::vector<NotchItem>& items) {
        items.front().iconPath = root.write("logo.png", "png");
        return true;
    });
    EXPECT_EQ(run({"cache-icons"}).out, "Cached 1 project icon\n");
}

TEST_F(CLITest, OpenRecordsTheFolderThenHandsItToTheDesktop) {
    launcher.exitStatus = 4;
    const Result opened = run({"open"});
    EXPECT_EQ(opened.status, 4);
    EXPECT_EQ(launcher.launches, (std::vector<FakeProcessLauncher::Launch>{
                                     {"xdg-open", {cwdFiles.workingDirectory}, false}}));

    launcher.startFailure = "Cannot start xdg-open: No such file or directory";
    const Result failed = run({"open", "."});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.errors, "Cannot start xdg-open: No such file or directory\n");

    EXPECT_EQ(run({"open", "missing"}).status, 2);
}

TEST_F(CLITest, ShowLeavesTheFlagAndStartsTheApplication) {
    const Result shown = run({"show"});
    EXPECT_EQ(shown.status, 0);
    EXPECT_TRUE(files.exists(folder.showOnLaunchFlag()));
    EXPECT_EQ(launcher.launches,
              (std::vector<FakeProcessLauncher::Launch>{{"/opt/tidewell/bin/tidewell", {}, true}}));

    launcher.startFailure = "Cannot start tidewell: Permission denied";
    const Result failed = run({"show"});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.errors, "Cannot start tidewell: Permission denied\n");
}

TEST_F(CLITest, LoginStatusDescribesTheRegistration) {
    loginService.currentStatus = LoginItemStatus::notFound;
    EXPECT_EQ(run({"login-status"}).out, "not found\n");
    root.write("home/Library/LaunchAgents/com.quorvel.tidewell.login.plist", "<plist/>");
    EXPECT_EQ(run({"login-status"}).out, "launch agent fallback\n");
}

TEST_F(CLITest, WriteFailuresAreReportedWithTheReason) {
    root.write("data/Tidewell/items.lock/blocker", "");
    const Result result = run({"add", "."});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.starts_with("tide: ")) << result.errors;
    EXPECT_NE(result.errors.find("items.lock"), std::string::npos) << result.errors;
    EXPECT_EQ(run({"remove", "x"}).status, 1);
    EXPECT_EQ(run({"cache-icons"}).status, 1);
}

} // namespace
} // namespace tidewell::testing
