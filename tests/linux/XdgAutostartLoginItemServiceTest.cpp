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
    std::string entryPath() const {
        return config.path() + "/autostart/com.quorvel.tidewell.desktop";
    }
    std::string entryText() { return files.readFile(entryPath()).value_or(""); }
    void writeEntry(const std::string& text) {
        config.write("autostart/com.quorvel.tidewell.desktop", text);
    }

    TemporaryDirectory config;
    PosixFileSystem files;
};

TEST_F(XdgAutostartLoginItemServiceTest, CopyOutsideAnInstallIsNotFound) {
    EXPECT_EQ(service("/home/user/build/tidewell", false).status(), LoginItemStatus::notFound);
    writeEntry("[Desktop Entry]\nType=Application\nExec=/usr/bin/tidewell\n");
    EXPECT_EQ(service("/home/user/build/tidewell", false).status(), LoginItemStatus::notFound);
}

TEST_F(XdgAutostartLoginItemServiceTest, RegisterWritesAnEntryAndUnregisterRemovesIt) {
    auto autostart = service();
    EXPECT_EQ(service().entryPath(), entryPath());
    EXPECT_EQ(autostart.status(), LoginItemStatus::notRegistered);

    autostart.registerApplication();
    EXPECT_EQ(autostart.status(), LoginItemStatus::enabled);
    EXPECT_EQ(entryText(), "[Desktop Entry]\n"
                           "Type=Application\n"
                           "Name=Tidewell\n"
                           "Comment=A shelf of project folders at the top of the screen\n"
                           "Exec=/usr/bin/tidewell\n"
                           "Icon=com.quorvel.tidewell\n"
                           "Terminal=false\n"
                           "NoDisplay=false\n"
                           "X-GNOME-Autostart-enabled=true\n");

    autostart.unregisterApplication();
    EXPECT_FALSE(files.exists(entryPath()));
    EXPECT_EQ(autostart.status(), LoginItemStatus::notRegistered);
    EXPECT_NO_THROW(autostart.unregisterApplication());
}

TEST_F(XdgAutostartLoginItemServiceTest, ExecQuotesPathsThatNeedIt) {
    service("/opt/My Apps/bin/tidewell").registerApplication();
    EXPECT_NE(entryText().find("\nExec=\"/opt/My Apps/bin/tidewell\"\n"), std::string::npos);

    // Inside quotes '$' is escaped with a backslash, which the string value escapes again;
    // '%' is doubled so that it is not a field code.
    service("/opt/a$b%c\\d/bin/tidewell").registerApplication();
    EXPECT_NE(entryText().find("\nExec=\"/opt/a\\\\$b%%c\\\\\\\\d/bin/tidewell\"\n"),
              std::string::npos)
        << entryText();
}

TEST_F(XdgAutostartLoginItemServiceTest, EntriesSwitchedOffByTheUserAreNotRegistered) {
    const std::vector<std::pair<std::string, LoginItemStatus>> entries = {
        {"[Desktop Entry]\nExec=tidewell\nHidden=true\n", LoginItemStatus::notRegistered},
        {"[Desktop Entry]\nX-GNOME-Autostart-enabled = false\n", LoginItemStatus::notRegistered},
        {"[Desktop Entry]\nHidden=false\nX-GNOME-Autostart-enabled=true\n",
         LoginItemStatus::enabled},
        {"[Desktop Entry]\nExec=tidewell\n[Desktop Action quit]\nHidden=true\n",
         LoginItemStatus::enabled},
        {"# Hidden=true\n[Desktop Entry]\nExec=tidewell\n", LoginItemStatus::enabled},
    };
    for (const auto& [text, status] : entries) {
        writeEntry(text);
        EXPECT_EQ(service().status(), status) << text;
    }
    service().registerApplication();
    EXPECT_EQ(service().status(), LoginItemStatus::enabled);
}

TEST(ApplicationLocation, InstalledMeansBinTidewellWithTheDesktopEntryBesideIt) {
    TemporaryDirectory prefix;
    const std::string executable = prefix.write("bin/tidewell");
    EXPECT_FALSE(applicationLocation(executable).isInstalled);

    prefix.write("share/applications/com.quorvel.tidewell.desktop", "[Desktop Entry]\n");
    const ApplicationLocation installed = applicationLocation(executable);
    EXPECT_EQ(installed.executable, executable);
    EXPECT_TRUE(installed.isInstalled);
    EXPECT_FALSE(applicationLocation(prefix.write("bin/tidewell-dev")).isInstalled);
    EXPECT_FALSE(applicationLocation(prefix.write("libexec/tidewell")).isInstalled);

    const ApplicationLocation current = currentApplicationLocation();
    EXPECT_EQ(current.executable, std::filesystem::read_symlink("/proc/self/exe").string());
    EXPECT_FALSE(current.isInstalled);
}

} // namespace
} // namespace tidewell
