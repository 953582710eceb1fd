#include "gui/windowsystem/OpenWindowSystem.h"

#include "gui/windowsystem/x11/X11WindowSystem.h"

namespace tidewell {

std::unique_ptr<WindowSystem> openWindowSystem(NotificationCenter& localCenter) {
    return std::make_unique<X11WindowSystem>(localCenter);
}

} // namespace tidewell
