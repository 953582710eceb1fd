#include "gui/settings/SettingsBridge.h"

#include "gui/SettingsFixture.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

class SettingsBridgeTest : public testing::SettingsFixture {
protected:
    SettingsBridgeTest() {
        QObject::connect(&bridge, &SettingsBridge::changed, [this] { ++changes; });
    }

    std::vector<std::string> pinnedPaths() const {
        std::vector<std::string> paths;
        for (const NotchItem& item : store.favorites())
            paths.push_back(item.path);
        return paths;
    }
    static QUrl fileUrl(const std::string& path) {
        return QUrl::fromLocalFile(QString::fromStdString(path));
    }

    SettingsView view{viewServices};
    SettingsBridge bridge{view, settings, store};
    int changes = 0;
};

TEST_F(SettingsBridgeTest, PickersListTheCasesByNameAndWriteThePreferenceOfThePickedPlace) {
    EXPECT_EQ(SettingsBridge::shelfAppearanceNames(), (QStringList{"Notch Black", "Warm Glass"}));
    EXPECT_EQ(SettingsBridge::codexLaunchModeNames(), (QStringList{"CLI", "App"}));
    const QStringList terminals = SettingsBridge::terminalAppNames();
    ASSERT_EQ(terminals.size(), 10);
    EXPECT_EQ(terminals.front(), "Automatic");
    EXPECT_EQ(terminals.at(3), "Konsole");

    bridge.setShelfAppearanceIndex(1);
    bridge.setTerminalAppIndex(3);
    bridge.setCodexLaunchModeIndex(1);
    bridge.setHideFromScreenCapture(true);
    EXPECT_EQ(defaults.string("shelfAppearance"), "warmGlass");
    EXPECT_EQ(defaults.string("preferredTerminalApp"), "konsole");
    EXPECT_EQ(defaults.string("codexLaunchMode"), "app");
    EXPECT_EQ(defaults.boolean("hideFromScreenCapture"), true);
    EXPECT_EQ(bridge.shelfAppearanceIndex(), 1);
    EXPECT_EQ(bridge.terminalAppIndex(), 3);
    EXPECT_EQ(bridge.codexLaunchModeIndex(), 1);
    EXPECT_TRUE(bridge.hideFromScreenCapture());
    EXPECT_GE(changes, 4);

    // A place outside the list changes nothing.
    bridge.setTerminalAppIndex(10);
    bridge.setShelfAppearanceIndex(-1);
    EXPECT_EQ(bridge.terminalAppIndex(), 3);
    EXPECT_EQ(bridge.shelfAppearanceIndex(), 1);
}

TEST_F(SettingsBridgeTest, CaptionsFollowThePreferencesAndTheDesktop) {
    EXPECT_EQ(bridge.terminalCaption(), "");
    EXPECT_EQ(bridge.codexCaption(), "");
    EXPECT_FALSE(bridge.screenCaptureCaption().isEmpty()) << "X11 cannot hide the shelf";

    bridge.setTerminalAppIndex(3); // Konsole, not installed
    EXPECT_EQ(bridge.terminalCaption(), "Konsole not found — using Terminal instead.");
    bridge.setCodexLaunchModeIndex(1);
    EXPECT_EQ(bridge.codexCaption(), "Codex app not found — using the CLI instead.");

    // Neither reading the captions nor a change of the items looks for programs again; the
    // window's showing does, and sees one installed meanwhile.
    const int lookups = executables.lookups;
    pin("project");
    bridge.terminalCaption();
    EXPECT_EQ(executables.lookups, lookups);
    executables.installed.insert("konsole");
    const int before = changes;
    view.refreshCaptions();
    EXPECT_GT(changes, before);
    EXPECT_EQ(bridge.terminalCaption(), "");
}

TEST_F(SettingsBridgeTest, TheLoginSwitchFallsBackWhenTheInstallFails) {
    // Refused, with no installed copy for a launch agent to start.
    loginItems.registerFailure = "denied";
    ASSERT_FALSE(bridge.startsAtLogin());

    bridge.setStartsAtLogin(true);
    queue.runUntilIdle();
    EXPECT_EQ(loginItems.registerCount, 1);
    EXPECT_FALSE(bridge.startsAtLogin());
    EXPECT_GE(changes, 1) << "the switch was not told to read the state again";

    loginItems.registerFailure.reset();
    bridge.setStartsAtLogin(true);
    queue.runUntilIdle();
    EXPECT_TRUE(bridge.startsAtLogin());
    EXPECT_EQ(loginItems.registerCount, 2);
}

TEST_F(SettingsBridgeTest, DroppedFoldersArePinnedInOrderAndEverythingElseIsIgnored) {
    const std::string first = root.makeFolder("first");
    const std::string file = root.write("notes.txt", "text");
    const std::string second = root.makeFolder("second");

    EXPECT_FALSE(bridge.handleDrop({fileUrl(file), QUrl("https://example.com/")}));
    EXPECT_TRUE(store.items().empty());

    bridge.setIsDropTargeted(true);
    EXPECT_TRUE(bridge.isDropTargeted());
    EXPECT_TRUE(bridge.handleDrop(
        {fileUrl(first), fileUrl(file), QUrl("https://example.com/"), fileUrl(second)}));
    queue.runUntilIdle();
    EXPECT_EQ(pinnedPaths(), (std::vector<std::string>{first, second}));
    EXPECT_EQ(store.items().size(), 2u);
}

TEST_F(SettingsBridgeTest, AddingAFolderAsksForOneAndPinsIt) {
    folders.choice = root.makeFolder("chosen");
    bridge.chooseNewFolder();
    queue.runUntilIdle();
    EXPECT_EQ(folders.prompts, (std::vector<std::string>{"Add"}));
    EXPECT_EQ(pinnedPaths(), (std::vector<std::string>{*folders.choice}));
}

} // namespace
} // namespace tidewell
