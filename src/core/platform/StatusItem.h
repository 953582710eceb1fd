#pragma once

#include "core/app/StatusMenu.h"

#include <functional>
#include <vector>

namespace tidewell {

// The application's icon in the desktop's status area, with its menu. Where the desktop
// has no status area, nothing is shown and nothing is reported.
class StatusItem {
public:
    struct Handlers {
        std::function<void(StatusMenuAction)> perform;
        // Each time the menu is about to open.
        std::function<void()> menuWillOpen;
    };

    virtual ~StatusItem() = default;
    // Shows the icon with a menu of these entries.
    virtual void configure(const std::vector<StatusMenuEntry>& entries, Handlers handlers) = 0;
    // Sets the check mark of the checkable entry of this action.
    virtual void setChecked(StatusMenuAction action, bool isChecked) = 0;
};

} // namespace tidewell
