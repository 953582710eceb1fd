#pragma once

#include "core/platform/StatusItem.h"

#include <map>

namespace tidewell::testing {

// Keeps the entries and handlers it was configured with; a test opens the menu and picks
// entries through them.
class FakeStatusItem : public StatusItem {
public:
    void configure(const std::vector<StatusMenuEntry>& menuEntries,
                   Handlers menuHandlers) override {
        entries = menuEntries;
        handlers = std::move(menuHandlers);
    }
    void setChecked(StatusMenuAction action, bool isChecked) override {
        checked[action] = isChecked;
    }

    void openMenu() { handlers.menuWillOpen(); }
    void choose(StatusMenuAction action) { handlers.perform(action); }

    std::vector<StatusMenuEntry> entries;
    Handlers handlers;
    std::map<StatusMenuAction, bool> checked;
};

} // namespace tidewell::testing
