#pragma once

#include "gui/windowsystem/WindowSystemChoice.h"

#include <memory>

namespace tidewell {

class NotificationCenter;
class WindowSystem;

// Chooses the window system from the session, says which on standard error in one line and
// sets Qt's platform to match. Before the QApplication exists.
WindowSystemKind prepareWindowSystem();
// The backend for the kind chosen, which is not `none`.
std::unique_ptr<WindowSystem> openWindowSystem(WindowSystemKind kind,
                                               NotificationCenter& localCenter);

} // namespace tidewell
