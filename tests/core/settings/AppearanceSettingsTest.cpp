#include "core/settings/AppearanceSettings.h"

#include "support/FakeKeyValueStore.h"

#include <gtest/gtest.h>
#include <vector>

namespace tidewell::testing {
namespace {

// Only exact raw values load, loading never writes, and each assignment is written before
// observers hear it and survives a restart.
TEST(AppearanceSettings, LoadsExactRawValuesAndWritesEachAssignmentBeforeAnnouncingIt) {
    FakeKeyValueStore defaults;
    defaults.values = {{"shelfAppearance", "WarmGlass"},
                       {"preferredTerminalApp", "Konsole"},
                       {"codexLaunchMode", "APP"},
                       {"hideFromScreenCapture", "true"}};
    AppearanceSettings settings(defaults);
    EXPECT_EQ(settings.shelfAppearance(), ShelfAppearance::notchBlack);
    EXPECT_EQ(settings.preferredTerminalApp(), TerminalApp::automatic);
    EXPECT_EQ(settings.codexLaunchMode(), CodexLaunchMode::cli);
    EXPECT_FALSE(settings.hideFromScreenCapture());
    EXPECT_EQ(defaults.writeCount, 0);

    std::vector<int> writesSeen;
    const Connection observing =
        settings.changed.connect([&] { writesSeen.push_back(defaults.writeCount); });
    settings.setShelfAppearance(ShelfAppearance::warmGlass);
    settings.setPreferredTerminalApp(TerminalApp::gnomeTerminal);
    settings.setCodexLaunchMode(CodexLaunchMode::app);
    settings.setHideFromScreenCapture(true);
    EXPECT_EQ(writesSeen, (std::vector{1, 2, 3, 4}));
    EXPECT_EQ(defaults.string("preferredTerminalApp"), "gnome-terminal");
    const AppearanceSettings restarted(defaults);
    EXPECT_EQ(restarted.shelfAppearance(), ShelfAppearance::warmGlass);
    EXPECT_EQ(restarted.preferredTerminalApp(), TerminalApp::gnomeTerminal);
    EXPECT_EQ(restarted.codexLaunchMode(), CodexLaunchMode::app);
    EXPECT_TRUE(restarted.hideFromScreenCapture());
}

} // namespace
} // namespace tidewell::testing
