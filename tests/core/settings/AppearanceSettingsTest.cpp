#include "core/settings/AppearanceSettings.h"

#include "support/FakeKeyValueStore.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tidewell::testing {
namespace {

TEST(AppearanceSettings, MissingKeysGiveTheDefaultsWithoutWriting) {
    FakeKeyValueStore defaults;
    const AppearanceSettings settings(defaults);
    EXPECT_EQ(settings.shelfAppearance(), ShelfAppearance::notchBlack);
    EXPECT_EQ(settings.preferredTerminalApp(), TerminalApp::automatic);
    EXPECT_EQ(settings.codexLaunchMode(), CodexLaunchMode::cli);
    EXPECT_FALSE(settings.hideFromScreenCapture());
    EXPECT_EQ(defaults.writeCount, 0);
}

TEST(AppearanceSettings, OnlyExactRawValuesLoadAndLoadingNeverWrites) {
    FakeKeyValueStore defaults;
    defaults.values = {{"shelfAppearance", "WarmGlass"},
                       {"preferredTerminalApp", "Automatic"},
                       {"codexLaunchMode", "APP"},
                       {"hideFromScreenCapture", "true"}};
    const AppearanceSettings wrongCase(defaults);
    EXPECT_EQ(wrongCase.shelfAppearance(), ShelfAppearance::notchBlack);
    EXPECT_EQ(wrongCase.preferredTerminalApp(), TerminalApp::automatic);
    EXPECT_EQ(wrongCase.codexLaunchMode(), CodexLaunchMode::cli);
    EXPECT_FALSE(wrongCase.hideFromScreenCapture());

    defaults.values = {{"shelfAppearance", "warmGlass"},
                       {"codexLaunchMode", "app"},
                       {"hideFromScreenCapture", true}};
    const AppearanceSettings exact(defaults);
    EXPECT_EQ(exact.shelfAppearance(), ShelfAppearance::warmGlass);
    EXPECT_EQ(exact.codexLaunchMode(), CodexLaunchMode::app);
    EXPECT_TRUE(exact.hideFromScreenCapture());

    for (const auto& [terminal, rawValue, displayName] : terminalAppCases) {
        defaults.values["preferredTerminalApp"] = std::string(rawValue);
        EXPECT_EQ(AppearanceSettings(defaults).preferredTerminalApp(), terminal) << rawValue;
    }
    for (const char* unknown : {"iterm", "Konsole", "", "xterm "}) {
        defaults.values["preferredTerminalApp"] = unknown;
        EXPECT_EQ(AppearanceSettings(defaults).preferredTerminalApp(), TerminalApp::automatic)
            << unknown;
    }
    EXPECT_EQ(defaults.writeCount, 0);
}

TEST(AppearanceSettings, EveryAssignmentWritesItsKeyBeforeTellingObservers) {
    using Stored = std::variant<std::string, bool>;
    const struct {
        const char* key;
        std::function<void(AppearanceSettings&)> assign;
        Stored stored;
    } cases[] = {
        {"shelfAppearance", [](auto& s) { s.setShelfAppearance(ShelfAppearance::warmGlass); },
         std::string("warmGlass")},
        {"shelfAppearance", [](auto& s) { s.setShelfAppearance(ShelfAppearance::notchBlack); },
         std::string("notchBlack")},
        {"preferredTerminalApp",
         [](auto& s) { s.setPreferredTerminalApp(TerminalApp::gnomeTerminal); },
         std::string("gnome-terminal")},
        {"codexLaunchMode", [](auto& s) { s.setCodexLaunchMode(CodexLaunchMode::cli); },
         std::string("cli")},
        {"hideFromScreenCapture", [](auto& s) { s.setHideFromScreenCapture(true); }, true},
        {"hideFromScreenCapture", [](auto& s) { s.setHideFromScreenCapture(false); }, false},
    };
    for (const auto& [key, assign, stored] : cases) {
        SCOPED_TRACE(key);
        FakeKeyValueStore defaults;
        AppearanceSettings settings(defaults);
        std::vector<Stored> seenByObservers;
        const Connection observing =
            settings.changed.connect([&] { seenByObservers.push_back(defaults.values.at(key)); });
        assign(settings); // the first time equal to the loaded default for some
        assign(settings);
        EXPECT_EQ(defaults.writeCount, 2);
        EXPECT_EQ(seenByObservers, (std::vector{stored, stored}));
    }
}

TEST(AppearanceSettings, AssignedValuesAreReadBackAndSurviveARestart) {
    FakeKeyValueStore defaults;
    AppearanceSettings settings(defaults);
    settings.setShelfAppearance(ShelfAppearance::warmGlass);
    settings.setPreferredTerminalApp(TerminalApp::wezterm);
    settings.setCodexLaunchMode(CodexLaunchMode::app);
    settings.setHideFromScreenCapture(true);
    const AppearanceSettings restarted(defaults);
    for (const AppearanceSettings* each : {&std::as_const(settings), &restarted}) {
        EXPECT_EQ(each->shelfAppearance(), ShelfAppearance::warmGlass);
        EXPECT_EQ(each->preferredTerminalApp(), TerminalApp::wezterm);
        EXPECT_EQ(each->codexLaunchMode(), CodexLaunchMode::app);
        EXPECT_TRUE(each->hideFromScreenCapture());
    }
}

} // namespace
} // namespace tidewell::testing
