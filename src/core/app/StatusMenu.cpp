#include "core/app/StatusMenu.h"

namespace tidewell {

std::vector<StatusMenuEntry> statusMenuEntries() {
    using enum StatusMenuAction;
    const StatusMenuEntry separator{.isSeparator = true};
    return {
        {.action = showShelf, .title = "Show shelf"},
        {.action = addFolder, .title = "Add folder..."},
        separator,
        // The desktop's Ctrl plays the part that Command plays elsewhere.
        {.action = showSettings, .title = "Settings...", .shortcut = "Ctrl+,"},
        {.action = toggleStartAtLogin, .title = "Open at login", .isCheckable = true},
        separator,
        {.action = revealData, .title = "Reveal data"},
        {.action = quit, .title = "Quit Tidewell", .shortcut = "Ctrl+Q"},
    };
}

} // namespace tidewell
