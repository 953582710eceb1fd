#pragma once

#include <string>
#include <vector>

namespace tidewell {

enum class StatusMenuAction {
    showShelf,
    addFolder,
    showSettings,
    toggleStartAtLogin,
    revealData,
    quit,
};

// One line of the status-area icon's menu: an action with its title, or a separator.
struct StatusMenuEntry {
    bool isSeparator = false;
    StatusMenuAction action = StatusMenuAction::showShelf;
    std::string title;
    // In the portable key-sequence form ("Ctrl+Q"); empty for none.
    std::string shortcut;
    // Shows a check mark that the application keeps up to date.
    bool isCheckable = false;
    bool operator==(const StatusMenuEntry&) const = default;
};

// The status menu's entries, in order.
std::vector<StatusMenuEntry> statusMenuEntries();

} // namespace tidewell
