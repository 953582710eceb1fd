#pragma once

#include "core/items/NotchItem.h"
#include "core/launch/CodexAppLauncher.h"
#include "core/launch/TerminalLauncher.h"
#include "core/settings/AppearanceSettings.h"
#include "core/store/ItemStore.h"

#include <functional>
#include <string>
#include <vector>

namespace tidewell {

enum class TileAction {
    openFolder,
    openInTerminal,
    startCodex,
    startClaudeCode,
    runStartCommand,
    showInFileManager,
    configure,
};

// One line of a tile's context menu: an action with its title and symbol, or a divider.
struct TileMenuEntry {
    bool isDivider = false;
    TileAction action = TileAction::openFolder;
    std::string title;
    std::string symbol; // the symbol's name; the interface maps it to an icon
    bool operator==(const TileMenuEntry&) const = default;
};

// What a project tile offers and what each offer runs. Preferences are read when an
// action runs, not when the menu is built.
class TileActions {
public:
    struct Services {
        ItemStore& store;
        const AppearanceSettings& settings;
        TerminalLauncher& terminal;
        CodexAppLauncher& codex;
        Workspace& workspace;
        std::function<void()> openSettings;
    };

    explicit TileActions(Services services) : services_(std::move(services)) {}

    static std::vector<TileMenuEntry> menu(const NotchItem& item);
    // The click on a tile.
    void primaryAction(const NotchItem& item) { perform(TileAction::openFolder, item); }
    void perform(TileAction action, const NotchItem& item);

private:
    Services services_;
};

} // namespace tidewell
