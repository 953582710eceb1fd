#include "linux/XdgAutostartLoginItemService.h"

#include "linux/CurrentApplicationLocation.h"
#include "linux/PosixFileSystem.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using testing::TemporaryDirectory;

class XdgAutostartLoginItemServiceTest : public ::testing::Test {
protected:
    XdgAutostartLoginItemService service(const std::string& executable = "/usr/bin/tidewell",
                                         bool isInstalled = true) {
        return XdgAutostartLoginItemService(files, config.path(), {executable, isInstalled});
    }
    TemporaryDirectory config;
    PosixFileSystem files;
    const std::string entryPath = config.path() + "/autostart/com.quorvel.tidewell.desktop";
};

// Inside Exec's quotes '$' is escaped with a backslash, which the string value escapes again;
// '%' is doubled so that it is not a field code.
TEST_F(XdgAutostartLoginItemServiceTest, RegisterWritesAnEntryAndUnregisterRemovesIt) {
    auto autostart = service("/opt/a$b%c\\d/bin/tidewell");
    EXPECT_EQ(autostart.status(), LoginItemStatus::notRegistered);
    autostart.registerApplication();
    EXPECT_EQ(autostart.status(), LoginItemStatus::enabled);
    EXPECT_EQ(files.readFile(entryPath),
              "[Desktop Entry]\nType=Application\nName=Tidewell\n"
              "Comment=A shelf of project folders at the top of the screen\n"
              "Exec=\"/opt/a\\\\$b%%c\\\\\\\\d/bin/tidewell\"\n"
              "Icon=com.quorvel.tidewell\nTerminal=false\n"
              "NoDisplay=false\nX-GNOME-Autostart-enabled=true\n");
    // A copy outside an install cannot be started at login, whatever the entry says.
    EXPECT_EQ(service("/home/user/build/tidewell", false).status(), LoginItemStatus::notFound);

    autostart.unregisterApplication();
    EXPECT_FALSE(files.exists(entryPath));
    EXPECT_NO_THROW(autostart.unregisterApplication());
}

TEST_F(XdgAutostartLoginItemServiceTest, EntriesSwitchedOffByTheUserAreNotRegistered) {
    const std::pair<std::string, LoginItemStatus> entries[] = {
        {"[Desktop Entry]\nExec=tidewell\nHidden=true\n", LoginItemStatus::notRegistered},
        {"[Desktop Entry]\nX-GNOME-Autostart-enabled = false\n", LoginItemStatus::notRegistered},
        {"[Desktop Entry]\nHidden=false\nX-GNOME-Autostart-enabled=true\n",
         LoginItemStatus::enabled},
        {"[Desktop Entry]\nExec=tidewell\n[Desktop Action quit]\nHidden=true\n",
         LoginItemStatus::enabled},
        {"Hidden=true\n[Desktop Entry]\nExec=tidewell\n", LoginItemStatus::enabled},
    };
    for (const auto& [text, status] : entries) {
        config.write("autostart/com.quorvel.tidewell.desktop", text);
        EXPECT_EQ(service().status(), status) << text;
    }
}

TEST(ApplicationLocation, InstalledMeansBinTidewellWithTheDesktopEntryBesideIt) {
    TemporaryDirectory prefix;
    const std::string executable = prefix.write("bin/tidewell");
    EXPECT_FALSE(applicationLocation(executable).isInstalled);
    const std::string entry = prefix.makeFolder("share/applications/com.quorvel.tidewell.desktop");
    EXPECT_FALSE(applicationLocation(executable).isInstalled) << "a folder is no desktop entry";

    std::filesystem::remove(entry);
    prefix.write("share/applications/com.quorvel.tidewell.desktop", "[Desktop Entry]\n");
    const ApplicationLocation installed = applicationLocation(executable);
    EXPECT_EQ(installed.executable, executable);
    EXPECT_TRUE(installed.isInstalled);
    EXPECT_EQ(installed.dataFolder, prefix.path() + "/share/tidewell");
    EXPECT_FALSE(applicationLocation(prefix.write("bin/tidewell-dev")).isInstalled);
    EXPECT_FALSE(applicationLocation(prefix.write("libexec/tidewell")).isInstalled);
}

} // namespace
} // namespace tidewell
