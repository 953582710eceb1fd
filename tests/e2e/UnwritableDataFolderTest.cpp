#include "e2e/EndToEndTest.h"

#include <filesystem>
#include <functional>
#include <unistd.h>

namespace tidewell::testing {
namespace {

// Tests may run as root, whom permission bits do not stop: every case here stops root too.
class UnwritableDataFolderTest : public EndToEndTest {
protected:
    // Adding and removing, run through `wrapped`, fail with the reason and change nothing.
    void expectSavesFail(
        const std::string& reason,
        const std::function<std::vector<std::string>(std::vector<std::string>)>& wrapped =
            [](auto command) { return command; }) {
        const std::string before = itemsFileBytes();
        for (const std::vector<std::string>& arguments :
             std::vector<std::vector<std::string>>{{"add", "."}, {"remove", "kept"}}) {
            ChildProcess::Launch command = launch(tidePath(), arguments, project("web"));
            command.arguments = wrapped(command.arguments);
            expectResult(ChildProcess::run(command), "", "tide: " + reason + "\n", 1);
        }
        EXPECT_EQ(itemsFileBytes(), before);
    }

    // A user without the right to mount gets it inside a user namespace of its own.
    static std::vector<std::string> unshare() {
        if (::geteuid() == 0)
            return {"unshare", "--mount"};
        return {"unshare", "--map-root-user", "--mount"};
    }
};

TEST_F(UnwritableDataFolderTest, ADataFolderBelowARegularFileFailsEverySaveWithItsReason) {
    const std::string file = root.write("plain-file", "not a folder");
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"add", "."}, {"remove", "web"}, {"cache-icons"}}) {
        ChildProcess::Launch command = launch(tidePath(), arguments, project("web"));
        command.environment["XDG_DATA_HOME"] = file + "/data";
        expectResult(ChildProcess::run(command), "",
                     "tide: Cannot create the folder " + file + "/data/Tidewell: Not a directory\n",
                     1);
    }
    EXPECT_EQ(readFile(file), "not a folder");
}

TEST_F(UnwritableDataFolderTest, ALockFileThatIsAFolderFailsTheSaveAndKeepsTheItems) {
    ASSERT_EQ(tide({"add", "."}, project("kept")).status, 0);
    std::filesystem::remove(dataFolder() + "/items.lock");
    std::filesystem::create_directory(dataFolder() + "/items.lock");
    expectSavesFail("Cannot open the lock file " + dataFolder() + "/items.lock: Is a directory");
}

// The tool runs in a mount namespace of its own, with the data folder mounted read-only.
TEST_F(UnwritableDataFolderTest, AReadOnlyDataFolderFailsTheSaveAndKeepsTheItems) {
    std::vector<std::string> probe = unshare();
    probe.insert(probe.end(), {"sh", "-c", R"(mount --bind -o ro "$0" "$0")", root.path()});
    if (ChildProcess::run({.arguments = probe, .environment = environment()}).status != 0)
        GTEST_SKIP() << "this machine allows no mount namespace";
    ASSERT_EQ(tide({"add", "."}, project("kept")).status, 0);

    expectSavesFail("Cannot open the lock file " + dataFolder() +
                        "/items.lock: Read-only file system",
                    [&](const std::vector<std::string>& command) {
                        std::vector<std::string> wrapped = unshare();
                        wrapped.insert(wrapped.end(),
                                       {"sh", "-c", R"(mount --bind -o ro "$0" "$0" && exec "$@")",
                                        dataFolder()});
                        wrapped.insert(wrapped.end(), command.begin(), command.end());
                        return wrapped;
                    });
    EXPECT_EQ(entries(dataFolder()), (std::vector<std::string>{"items.json", "items.lock"}));
}

} // namespace
} // namespace tidewell::testing
