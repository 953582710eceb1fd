#include "gui/windowsystem/OpenWindowSystem.h"

#include "gui/windowsystem/SessionProbe.h"
#include "gui/windowsystem/wayland/WaylandShell.h"
#include "gui/windowsystem/wayland/WaylandWindowSystem.h"
#include "gui/windowsystem/x11/X11WindowSystem.h"

#include <cstdio>
#include <cstdlib>

namespace tidewell {

WindowSystemKind prepareWindowSystem() {
    const WindowSystemChoice choice = chooseWindowSystem(currentSession());
    std::fprintf(stderr, "%s\n", choice.line.c_str());
    if (choice.kind == WindowSystemKind::waylandLayerShell) {
        setenv("QT_QPA_PLATFORM", "wayland", 1);
        prepareWaylandShell();
    } else if (choice.kind != WindowSystemKind::none) {
        setenv("QT_QPA_PLATFORM", "xcb", 1);
    }
    return choice.kind;
}

std::unique_ptr<WindowSystem> openWindowSystem(WindowSystemKind kind,
                                               NotificationCenter& localCenter) {
    if (kind == WindowSystemKind::waylandLayerShell)
        return std::make_unique<WaylandWindowSystem>(localCenter);
    return std::make_unique<X11WindowSystem>(localCenter,
                                             kind == WindowSystemKind::x11RawMotion
                                                 ? X11WindowSystem::Tracking::rawMotion
                                                 : X11WindowSystem::Tracking::triggerWindow);
}

} // namespace tidewell
