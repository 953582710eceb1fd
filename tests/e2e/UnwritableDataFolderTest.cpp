#include "e2e/EndToEndTest.h"

#include <filesystem>
#include <unistd.h>

namespace tidewell::testing {
namespace {

// Tests may run as root, whom permission bits do not stop: every case here stops root too.
using UnwritableDataFolderTest = EndToEndTest;

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

// The tool runs in a mount namespace of its own, with the data folder mounted read-only.
TEST_F(UnwritableDataFolderTest, AReadOnlyDataFolderFailsTheSaveAndKeepsTheItems) {
    const auto runWithReadOnly = [](const std::string& folder, ChildProcess::Launch command) {
        std::vector<std::string> wrapped = {
            "unshare", "--mount", "sh", "-c", R"(mount --bind -o ro "$0" "$0" && exec "$@")",
            folder};
        // A user without the right to mount gets it inside a user namespace of its own.
        if (::geteuid() != 0)
            wrapped.insert(wrapped.begin() + 1, "--map-root-user");
        wrapped.insert(wrapped.end(), command.arguments.begin(), command.arguments.end());
        command.arguments = wrapped;
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
