#include "e2e/EndToEndTest.h"

#include <filesystem>

namespace tidewell::testing {
namespace {

using InstallTest = EndToEndTest;

// The build installed into a fresh prefix: what lands there, and that the installed tool
// knows it is installed.
TEST_F(InstallTest, InstallsTheProgramItsLinkAndTheDesktopEntry) {
    const std::string prefix = root.path() + "/prefix";
    const ProcessResult installed = ChildProcess::run(
        {.arguments = {TIDEWELL_CMAKE, "--install", buildFolder(), "--prefix", prefix},
         .environment = environment()},
        std::chrono::seconds(60));
    ASSERT_EQ(installed.status, 0) << installed.standardError;

    namespace fs = std::filesystem;
    EXPECT_EQ(fs::status(prefix + "/bin/tidewell").permissions() & fs::perms::owner_exec,
              fs::perms::owner_exec);
    EXPECT_EQ(fs::read_symlink(prefix + "/bin/tide"), "tidewell");
    EXPECT_TRUE(fs::is_directory(prefix + "/" TIDEWELL_INSTALL_LIBDIR "/tidewell"));
    EXPECT_TRUE(fs::is_regular_file(prefix + "/share/applications/com.quorvel.tidewell.desktop"));
    EXPECT_TRUE(fs::is_regular_file(prefix +
                                    "/share/icons/hicolor/scalable/apps/com.quorvel.tidewell.svg"));
    expectResult(ChildProcess::run(launch(prefix + "/bin/tide", {"login-status"}, home)),
                 "not registered\n", "", 0);
}

} // namespace
} // namespace tidewell::testing
