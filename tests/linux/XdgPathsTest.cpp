#include "linux/XdgPaths.h"

#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

namespace tidewell {
namespace {

TEST(XdgPaths, VariablesCountOnlyWithAbsolutePaths) {
    testing::ScopedEnvironment environment;
    environment.set("HOME", "/home/ada");
    environment.set("XDG_DATA_HOME", "/data/ada");
    environment.set("XDG_CONFIG_HOME", "/config/ada");
    environment.set("XDG_RUNTIME_DIR", "/run/user/1000");
    EXPECT_EQ(XdgPaths::userPaths().home, "/home/ada");
    EXPECT_EQ(XdgPaths::userPaths().applicationSupport, "/data/ada");
    EXPECT_EQ(XdgPaths::configHome(), "/config/ada");
    EXPECT_EQ(XdgPaths::runtimeFolder(), "/run/user/1000");

    environment.set("XDG_DATA_HOME", "relative/data");
    environment.set("XDG_CONFIG_HOME", "");
    environment.set("XDG_RUNTIME_DIR", "run");
    testing::TemporaryDirectory temporary;
    environment.set("TMPDIR", temporary.path());
    EXPECT_EQ(XdgPaths::userPaths().applicationSupport, "/home/ada/.local/share");
    EXPECT_EQ(XdgPaths::configHome(), "/home/ada/.config");
    EXPECT_EQ(XdgPaths::runtimeFolder(), temporary.path());
}

TEST(XdgPaths, DefaultsFollowTheHomeFolder) {
    testing::ScopedEnvironment environment;
    environment.unset("XDG_DATA_HOME");
    environment.unset("XDG_CONFIG_HOME");
    environment.unset("XDG_RUNTIME_DIR");
    environment.unset("TMPDIR");
    environment.unset("HOME");
    const std::string home = ::getpwuid(::getuid())->pw_dir;
    EXPECT_EQ(XdgPaths::userPaths().home, home);
    EXPECT_EQ(XdgPaths::userPaths().applicationSupport, home + "/.local/share");
    EXPECT_EQ(XdgPaths::configHome(), home + "/.config");
    EXPECT_EQ(XdgPaths::runtimeFolder(), "/tmp");
}

} // namespace
} // namespace tidewell
