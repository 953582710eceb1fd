#include "e2e/EndToEndTest.h"

#include <filesystem>
#include <unistd.h>

namespace tidewell::testing {
namespace {

// Tests may run as root, whom permission bits do not stop; every case but the last makes the
// folder unwritable in a way that stops root too.
class UnwritableDataFolderTest : public EndToEndTest {
protected:
    // A data folder holding one record, and the file's bytes.
    std::string recordOneProject() {
        EXPECT_EQ(tide({"add", "."}, project("kept")).status, 0);
        return itemsFileBytes();
    }

    static void expectFailure(const ProcessResult& result, const std::string& reason) {
        expectResult(result, "", "tide: " + reason + "\n", 1);
    }

    // Runs the tool in a mount namespace of its own, with the data folder mounted read-only.
    ProcessResult tideOnReadOnlyDataFolder(const std::vector<std::string>& arguments,
                                           const std::string& workingDirectory) const {
        std::vector<std::string> command = unshareCommand();
        command.insert(command.end(), {"sh", "-c", R"(mount --bind -o ro "$0" "$0" && exec "$@")",
                                       dataFolder(), tidePath()});
        command.insert(command.end(), arguments.begin(), arguments.end());
        return ChildProcess::run({.arguments = command,
                                  .workingDirectory = workingDirectory,
                                  .environment = environment()});
    }

    // Whether this machine lets the test mount in a namespace of its own.
    bool canMountReadOnly() const {
        std::vector<std::string> probe = unshareCommand();
        probe.insert(probe.end(), {"sh", "-c", R"(mount --bind -o ro "$0" "$0")", root.path()});
        try {
            return ChildProcess::run({.arguments = probe, .environment = environment()}).status ==
                   0;
        } catch (const std::exception&) {
            return false;
        }
    }

private:
    // A user without the right to mount gets it inside a user namespace of its own.
    static std::vector<std::string> unshareCommand() {
        if (::geteuid() == 0)
            return {"unshare", "--mount"};
        return {"unshare", "--map-root-user", "--mount"};
    }
};

TEST_F(UnwritableDataFolderTest, ADataFolderBelowARegularFileFailsEverySaveWithItsReason) {
    const std::string file = root.write("plain-file", "not a folder");
    const std::string folder = project("web");
    const std::string reason =
        "Cannot create the folder " + file + "/data/Tidewell: Not a directory";
    for (const std::vector<std::string>& command :
         std::vector<std::vector<std::string>>{{"add", "."}, {"remove", "web"}, {"cache-icons"}}) {
        ChildProcess::Launch launch = tideLaunch(command, folder);
        launch.environment["XDG_DATA_HOME"] = file + "/data";
        expectFailure(ChildProcess::run(launch), reason);
    }
    EXPECT_EQ(readFile(file), "not a folder");
}

TEST_F(UnwritableDataFolderTest, ALockFileThatIsAFolderFailsTheSaveAndKeepsTheItems) {
    const std::string before = recordOneProject();
    std::filesystem::remove(dataFolder() + "/items.lock");
    std::filesystem::create_directory(dataFolder() + "/items.lock");
    const std::string reason =
        "Cannot open the lock file " + dataFolder() + "/items.lock: Is a directory";

    expectFailure(tide({"add", "."}, project("web")), reason);
    expectFailure(tide({"remove", "kept"}, project("web")), reason);
    EXPECT_EQ(itemsFileBytes(), before);
}

TEST_F(UnwritableDataFolderTest, AReadOnlyDataFolderFailsTheSaveAndKeepsTheItems) {
    if (!canMountReadOnly())
        GTEST_SKIP() << "this machine allows no mount namespace";
    const std::string before = recordOneProject();
    const std::string reason =
        "Cannot open the lock file " + dataFolder() + "/items.lock: Read-only file system";

    expectFailure(tideOnReadOnlyDataFolder({"add", "."}, project("web")), reason);
    expectFailure(tideOnReadOnlyDataFolder({"remove", "kept"}, project("web")), reason);
    EXPECT_EQ(itemsFileBytes(), before);
    EXPECT_EQ(entries(dataFolder()), (std::vector<std::string>{"items.json", "items.lock"}));
}

TEST_F(UnwritableDataFolderTest, AFolderWithoutWritePermissionFailsTheSaveAndKeepsTheItems) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "permission bits do not stop root";
    const std::string before = recordOneProject();
    std::filesystem::permissions(dataFolder(), std::filesystem::perms(0555));

    expectFailure(tide({"add", "."}, project("web")),
                  "Cannot write a file in the folder " + dataFolder() + ": Permission denied");
    EXPECT_EQ(itemsFileBytes(), before);
    EXPECT_EQ(entries(dataFolder()), (std::vector<std::string>{"items.json", "items.lock"}));
}

} // namespace
} // namespace tidewell::testing
