#include "gui/settings/SettingsBridge.h"

#include "gui/ShelfFixture.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

class SettingsBridgeTest : public testing::ShelfFixture {
protected:
    SettingsBridgeTest() {
        QObject::connect(&bridge, &SettingsBridge::changed, [this] { ++changes; });
    }

    SettingsView view{{.store = store,
                       .appearance = settings,
                       .launchAtLogin = launchAtLogin,
                       .defaults = defaults,
                       .localCenter = localCenter,
                       .folders = folders,
                       .files = files,
                       .terminal = terminal,
                       .codex = codex,
                       .canHideFromScreenCapture = false}};
    SettingsBridge bridge{view, settings, store};
    int changes = 0;
};

TEST_F(SettingsBridgeTest, PickersListTheCasesByNameAndWriteThePreferenceOfThePickedPlace) {
    EXPECT_EQ(SettingsBridge::shelfAppearanceNames(), (QStringList{"Notch Black", "Warm Glass"}));
    EXPECT_EQ(SettingsBridge::codexLaunchModeNames(), (QStringList{"CLI", "App"}));
    ASSERT_EQ(SettingsBridge::terminalAppNames().at(3), "Konsole");

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
    EXPECT_EQ(bridge.terminalCaption(), "Konsole not found — using Terminal instead.");
    EXPECT_GE(changes, 4);

    // A place outside the list changes nothing.
    bridge.setTerminalAppIndex(10);
    bridge.setShelfAppearanceIndex(-1);
    EXPECT_EQ(bridge.terminalAppIndex(), 3);
    EXPECT_EQ(bridge.shelfAppearanceIndex(), 1);
}

} // namespace
} // namespace tidewell
