#include "linux/XdgPaths.h"

#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

namespace tidewell {

// Variables count only with absolute paths; without them the folders follow the home folder,
// which without $HOME is the password database's.
TEST(XdgPaths, VariablesCountOnlyWithAbsolutePathsAndDefaultsFollowTheHomeFolder) {
    testing::ScopedEnvironment environment;
    const auto expectPaths = [](const std::string& home, const std::string& data,
                                const std::string& config, const std::string& runtime) {
        EXPECT_EQ(XdgPaths::userPaths().home, home);
        EXPECT_EQ(XdgPaths::userPaths().applicationSupport, data);
        EXPECT_EQ(XdgPaths::configHome(), config);
        EXPECT_EQ(XdgPaths::runtimeFolder(), runtime);
    };
    environment.set("HOME", "/home/ada");
    environment.set("XDG_DATA_HOME", "/data/ada");
    environment.set("XDG_CONFIG_HOME", "/config/ada");
    environment.set("XDG_RUNTIME_DIR", "/run/user/1000");
    expectPaths("/home/ada", "/data/ada", "/config/ada", "/run/user/1000");

    environment.set("XDG_DATA_HOME", "relative/data");
    environment.set("XDG_CONFIG_HOME", "");
    environment.set("XDG_RUNTIME_DIR", "run");
    const testing::TemporaryDirectory temporary;
    environment.set("TMPDIR", temporary.path());
    expectPaths("/home/ada", "/home/ada/.local/share", "/home/ada/.config", temporary.path());

    for (const char* name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "TMPDIR"})
        environment.unset(name);
    environment.set("HOME", "relative/home");
    const std::string home = ::getpwuid(::getuid())->pw_dir;
    expectPaths(home, home + "/.local/share", home + "/.config", "/tmp");
}

} // namespace tidewell
