#include "gui/settings/SettingsBridge.h"

#include "gui/ShelfFixture.h"

#include <QStringList>
#include <QVariant>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using SettingsBridgeTest = testing::ShelfFixture;

// Each picker lists its cases by name, writes the preference of the picked place and ignores
// a place outside the list.
TEST_F(SettingsBridgeTest, PickersListTheCasesByNameAndWriteThePreferenceOfThePickedPlace) {
    SettingsView view{{store, settings, launchAtLogin, defaults, localCenter, folders, files,
                       terminal, codex, false}};
    SettingsBridge bridge{view, settings, store};
    int changes = 0;
    QObject::connect(&bridge, &SettingsBridge::changed, [&] { ++changes; });
    EXPECT_EQ(SettingsBridge::shelfAppearanceNames(), (QStringList{"Notch Black", "Warm Glass"}));
    EXPECT_EQ(SettingsBridge::codexLaunchModeNames(), (QStringList{"CLI", "App"}));
    using Case = std::tuple<const char*, QVariant, const char*, std::string>;
    for (const auto& [property, picked, key, stored] : std::vector<Case>{
             {"shelfAppearanceIndex", 1, "shelfAppearance", "warmGlass"},
             {"terminalAppIndex", 3, "preferredTerminalApp", "konsole"},
             {"codexLaunchModeIndex", 1, "codexLaunchMode", "app"},
         }) {
        ASSERT_TRUE(bridge.setProperty(property, picked)) << property;
        EXPECT_EQ(defaults.string(key), stored);
        for (const int outside : {-1, 10})
            bridge.setProperty(property, outside);
        EXPECT_EQ(bridge.property(property), picked) << property;
    }
    bridge.setHideFromScreenCapture(true);
    EXPECT_EQ(defaults.boolean("hideFromScreenCapture"), true);
    EXPECT_TRUE(bridge.hideFromScreenCapture());
    EXPECT_EQ(bridge.terminalCaption(), "Konsole not found — using Terminal instead.");
    EXPECT_GE(changes, 4);
}

} // namespace
} // namespace tidewell
