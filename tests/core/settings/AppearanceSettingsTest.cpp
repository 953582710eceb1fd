#include "core/settings/AppearanceSettings.h"

#include "support/FakeKeyValueStore.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tidewell::testing {
namespace {

TEST(AppearanceSettings, OnlyExactRawValuesLoadElseTheDefaultsAndLoadingNeverWrites) {
    FakeKeyValueStore defaults;
    defaults.values = {{"shelfAppearance", "WarmGlass"},
                       {"preferredTerminalApp", "Konsole"},
                       {"codexLaunchMode", "APP"},
                       {"hideFromScreenCapture", "true"}};
    const AppearanceSettings wrongCase(defaults);
    EXPECT_EQ(wrongCase.shelfAppearance(), ShelfAppearance::notchBlack);
    EXPECT_EQ(wrongCase.preferredTerminalApp(), TerminalApp::automatic);
    EXPECT_EQ(wrongCase.codexLaunchMode(), CodexLaunchMode::cli);
    EXPECT_FALSE(wrongCase.hideFromScreenCapture());
    for (const auto& [terminal, rawValue, displayName] : terminalAppCases) {
        defaults.values["preferredTerminalApp"] = std::string(rawValue);
        EXPECT_EQ(AppearanceSettings(defaults).preferredTerminalApp(), terminal) << rawValue;
    }
    EXPECT_EQ(defaults.writeCount, 0);
}

TEST(AppearanceSettings, EachAssignmentIsWrittenBeforeObserversHearItAndSurvivesARestart) {
    FakeKeyValueStore defaults;
    AppearanceSettings settings(defaults);
    std::vector<int> writesSeenByObservers;
    const Connection observing =
        settings.changed.connect([&] { writesSeenByObservers.push_back(defaults.writeCount); });
    settings.setShelfAppearance(ShelfAppearance::warmGlass);
    settings.setPreferredTerminalApp(TerminalApp::gnomeTerminal);
    settings.setCodexLaunchMode(CodexLaunchMode::app);
    settings.setHideFromScreenCapture(true);
    settings.setHideFromScreenCapture(true); // an unchanged value is written and announced too
    EXPECT_EQ(writesSeenByObservers, (std::vector{1, 2, 3, 4, 5}));
    EXPECT_EQ(defaults.string("preferredTerminalApp"), "gnome-terminal");

    const AppearanceSettings restarted(defaults);
    EXPECT_EQ(restarted.shelfAppearance(), ShelfAppearance::warmGlass);
    EXPECT_EQ(restarted.preferredTerminalApp(), TerminalApp::gnomeTerminal);
    EXPECT_EQ(restarted.codexLaunchMode(), CodexLaunchMode::app);
    EXPECT_TRUE(restarted.hideFromScreenCapture());
}

} // namespace
} // namespace tidewell::testing
