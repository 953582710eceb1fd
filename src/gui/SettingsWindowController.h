#pragma once

#include "core/platform/SettingsWindow.h"

#include <QQuickWindow>

namespace tidewell {

// The settings window. Created hidden with the application; closing it only hides it.
class SettingsWindowController : public SettingsWindow {
public:
    SettingsWindowController();

    void show() override;

private:
    QQuickWindow window_;
};

} // namespace tidewell
