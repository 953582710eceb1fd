#include "linux/PathExecutableLocator.h"

#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

std::string writeProgram(const testing::TemporaryDirectory& root, const std::string& path,
                         std::filesystem::perms permissions) {
    const std::string file = root.write(path, "#!/bin/sh\n");
    std::filesystem::permissions(file, permissions);
    return file;
}

TEST(PathExecutableLocator, FindsExecutableFilesOnTheSearchPath) {
    using std::filesystem::perms;
    const testing::TemporaryDirectory root;
    const std::string tool = writeProgram(root, "bin/tool", perms::owner_all);
    const std::string notes =
        writeProgram(root, "bin/notes", perms::owner_read | perms::owner_write);
    writeProgram(root, "more/other", perms::owner_all);
    root.makeFolder("bin/folder");
    testing::ScopedEnvironment environment;
    environment.set("PATH", root.path() + "/bin:" + root.path() + "/more");
    const PathExecutableLocator locator;

    EXPECT_TRUE(locator.isInstalled("tool"));
    EXPECT_TRUE(locator.isInstalled("other"));
    EXPECT_FALSE(locator.isInstalled("notes"));
    EXPECT_FALSE(locator.isInstalled("folder"));

    // A name with a slash is a path, never searched.
    EXPECT_TRUE(locator.isInstalled(tool));
    EXPECT_FALSE(locator.isInstalled(notes));
    environment.set("PATH", root.path());
    EXPECT_FALSE(locator.isInstalled("bin/tool"));
    EXPECT_FALSE(locator.isInstalled("tool")); // the search path is read on every call
}

} // namespace
} // namespace tidewell
