#include "core/cli/CLI.h"

#include "support/FakeLoginItemService.h"
#include "support/FakeProcessLauncher.h"
#include "support/ItemsFixture.h"

#include <sstream>

namespace tidewell::testing {
namespace {

// The real file system, seen from a working directory of the test's choosing, where one
// path never answers, as on a network mount that hung.
class WorkingDirectoryFileSystem : public PosixFileSystem {
public:
    std::string currentDirectory() const override { return workingDirectory; }
    std::optional<bool> existsWithin(const std::string& path,
                                     std::chrono::milliseconds limit) const override {
        return path == workingDirectory + "/stalled" ? std::nullopt
                                                     : PosixFileSystem::existsWithin(path, limit);
    }
    std::string workingDirectory = "/";
};

// The exact texts of every command are checked on the built program; here are the argument
// forms and the failures that only fakes can cause.
class CLITest : public ItemsFixture {
protected:
    struct Result {
        int status;
        std::string out;
        std::string errors;
        bool operator==(const Result&) const = default;
    };

    CLITest() { cwdFiles.workingDirectory = root.makeFolder("work/myProject"); }

    Result run(std::vector<std::string> arguments, ItemDatabase* itemDatabase = nullptr) {
        arguments.insert(arguments.begin(), "tide");
        std::ostringstream out, errors;
        CLI cli({.database = itemDatabase ? *itemDatabase : database,
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

    WorkingDirectoryFileSystem cwdFiles;
    FakeProcessLauncher launcher;
    FakeLoginItemService loginService;
    LaunchAgentManager launchAtLogin{files, loginService, paths, {}};
};

TEST_F(CLITest, CommandWordsOptionsAndFoldersAreReadInEveryForm) {
    root.makeFolder("home/code");
    root.makeFolder("work/sibling");
    root.makeFolder("work/myProject/stalled");
    const std::string missing = "Path does not exist: " + cwdFiles.workingDirectory;
    const std::pair<std::vector<std::string>, Result> cases[] = {
        {{"here"}, {0, "Added to recent: myProject\n", ""}},
        {{"recent", "."}, {0, "Added to recent: myProject\n", ""}},
        {{"fav"}, {0, "Pinned: myProject\n", ""}},
        {{"favorite", ".", "--name"}, {0, "Pinned: myProject\n", ""}}, // a name needs a value
        {{"add", "--name"}, {2, "", missing + "/--name\n"}},           // ... or is the folder
        {{"nowhere"}, {2, "", missing + "/nowhere\n"}},
        {{"remove", "nothing"}, {1, "", "No item matched nothing\n"}},
        {{"-psn"}, {2, "", missing + "/-psn\n"}},
        {{"add", "~/code"}, {0, "Pinned: code\n", ""}},
        {{"add", "../sibling/"}, {0, "Pinned: sibling\n", ""}},
        {{"add", "stalled"},
         {1, "",
          "tide: " + cwdFiles.workingDirectory +
              "/stalled did not answer within 5 seconds; is it on a network mount that stopped "
              "responding?\n"}},
    };
    for (const auto& [arguments, result] : cases) {
        SCOPED_TRACE(arguments.back());
        EXPECT_EQ(run(arguments), result);
    }
    EXPECT_EQ(run({}), run({"help"}));
    // Only a real first argument makes a tool start.
    EXPECT_FALSE(CLI::isCLIInvocation({"tide"}) ||
                 CLI::isCLIInvocation({"tidewell", "-psn_0_12345"}));
    EXPECT_TRUE(CLI::isCLIInvocation({"tide", "help"}) && CLI::isCLIInvocation({"tide", "-psn"}));

    // Equally recent items are listed in the order they were stored.
    EXPECT_EQ(run({"list"}),
              (Result{0,
                      "* myProject\t" + cwdFiles.workingDirectory + "\n* code\t" + paths.home +
                          "/code\n* sibling\t" + root.path() + "/work/sibling\n",
                      ""}));
}

TEST_F(CLITest, AddStoresTheOptionsAndCopiesTheIconIntoTheCache) {
    root.write("work/myProject/art/Logo.SVG", "<svg/>");
    EXPECT_EQ(run({"add", "--icon", "art/Logo.SVG", "--name", "Studio", "--command", "make"}),
              (Result{0, "Pinned: Studio\n", ""}));
    const std::vector<NotchItem> items = database.load();
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].path, cwdFiles.workingDirectory);
    EXPECT_EQ(items[0].launchCommand, "make");
    EXPECT_EQ(items[0].iconPath, folder.iconsFolder() + "/" + items[0].id.text() + ".svg");
    EXPECT_EQ(files.readFile(*items[0].iconPath), "<svg/>");

    std::vector<NotchItem> external = items;
    external[0].iconPath = cwdFiles.workingDirectory + "/art/Logo.SVG";
    database.save(external);
    EXPECT_EQ(run({"cache-icons"}), (Result{0, "Cached 1 project icon\n", ""}));
    root.write("blocked", "a file where the data folder should go");
    ItemDatabase blocked(
        {files, clock, localCenter, distributedCenter, imageFormats},
        DataFolder({.home = paths.home, .applicationSupport = root.path() + "/blocked"}));
    const Result failed = run({"cache-icons"}, &blocked);
    EXPECT_EQ(failed.status, 1);
    EXPECT_TRUE(failed.errors.starts_with("tide: ")) << failed.errors;
}

TEST_F(CLITest, ShowAndOpenStartTheirProgramOrReportWhyNot) {
    EXPECT_EQ(run({"show"}), (Result{0, "", ""}));
    EXPECT_TRUE(files.exists(folder.showOnLaunchFlag()));
    EXPECT_EQ(run({"open"}), (Result{0, "Added to recent: myProject\n", ""}));
    EXPECT_EQ(launcher.launches, (std::vector<FakeProcessLauncher::Launch>{
                                     {"/opt/tidewell/bin/tidewell", {}, true},
                                     {"xdg-open", {cwdFiles.workingDirectory}, false}}));

    launcher.startFailure = "Cannot start it: Permission denied";
    EXPECT_EQ(run({"show"}), (Result{1, "", "Cannot start it: Permission denied\n"}));
    EXPECT_EQ(run({"open", "."}),
              (Result{1, "Added to recent: myProject\n", "Cannot start it: Permission denied\n"}));
}

} // namespace
} // namespace tidewell::testing
