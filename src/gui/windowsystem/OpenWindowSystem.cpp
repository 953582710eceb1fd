#include "gui/windowsystem/OpenWindowSystem.h"

#include "gui/windowsystem/wayland/WaylandWindowSystem.h"
#include "gui/windowsystem/x11/X11WindowSystem.h"

#include <QGuiApplication>

namespace tidewell {

std::unique_ptr<WindowSystem> openWindowSystem(NotificationCenter& localCenter) {
    if (QGuiApplication::platformName() == QLatin1String("wayland"))
        return std::make_unique<WaylandWindowSystem>(localCenter);
    return std::make_unique<X11WindowSystem>(localCenter);
}

} // namespace tidewell
