#include "gui/SettingsWindowController.h"

namespace tidewell {

SettingsWindowController::SettingsWindowController() {
    window_.setTitle("Tidewell Settings");
    window_.resize(700, 540);
    window_.setMinimumSize({680, 500});
}

void SettingsWindowController::show() {
    window_.show();
    window_.raise();
    window_.requestActivate();
}

} // namespace tidewell
