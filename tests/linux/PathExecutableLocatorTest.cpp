#include "linux/PathExecutableLocator.h"

#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tidewell {

TEST(PathExecutableLocator, FindsExecutableFilesOnTheSearchPath) {
    using std::filesystem::perms;
    const testing::TemporaryDirectory root;
    for (const auto& [path, permissions] :
         {std::pair{"bin/tool", perms::owner_all},
          std::pair{"bin/notes", perms::owner_read | perms::owner_write},
          std::pair{"more/other", perms::owner_all}})
        std::filesystem::permissions(root.write(path, "#!/bin/sh\n"), permissions);
    root.makeFolder("bin/folder");
    testing::ScopedEnvironment environment;
    environment.set("PATH", root.path() + "/bin:" + root.path() + "/more");
    const PathExecutableLocator locator;
    // A name with a slash is a path, never searched.
    const std::string bin = root.path() + "/bin/";
    using Names = std::vector<std::string>;
    for (const std::string& name : Names{"tool", "other", bin + "tool"})
        EXPECT_TRUE(locator.isInstalled(name)) << name;
    for (const std::string& name : Names{"notes", "folder", bin + "notes"})
        EXPECT_FALSE(locator.isInstalled(name)) << name;
    environment.set("PATH", root.path());
    EXPECT_FALSE(locator.isInstalled("bin/tool"));
    EXPECT_FALSE(locator.isInstalled("tool")); // the search path is read on every call
}

} // namespace tidewell
