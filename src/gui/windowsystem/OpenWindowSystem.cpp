#include "gui/windowsystem/OpenWindowSystem.h"

#include "gui/windowsystem/SessionProbe.h"
#include "gui/windowsystem/x11/X11WindowSystem.h"

#include <cstdio>
#include <cstdlib>

namespace tidewell {

WindowSystemKind prepareWindowSystem() {
    Session session = currentSession();
    // No native Wayland backend yet: a compositor with layer shell gets the X11 one as well.
    if (session.compositor == WaylandCompositor::withLayerShell)
        session.compositor = WaylandCompositor::withoutLayerShell;
    const WindowSystemChoice choice = chooseWindowSystem(session);
    std::fprintf(stderr, "%s\n", choice.line.c_str());
    if (choice.kind != WindowSystemKind::none)
        setenv("QT_QPA_PLATFORM",
               choice.kind == WindowSystemKind::waylandLayerShell ? "wayland" : "xcb", 1);
    return choice.kind;
}

std::unique_ptr<WindowSystem> openWindowSystem(WindowSystemKind kind,
                                               NotificationCenter& localCenter) {
    return std::make_unique<X11WindowSystem>(localCenter,
                                             kind == WindowSystemKind::x11RawMotion
                                                 ? X11WindowSystem::Tracking::rawMotion
                                                 : X11WindowSystem::Tracking::triggerWindow);
}

} // namespace tidewell
