#pragma once

namespace tidewell {

// The settings window.
class SettingsWindow {
public:
    virtual ~SettingsWindow() = default;
    // Shows the window in front of the others, creating its contents if needed.
    virtual void show() = 0;
};

} // namespace tidewell
