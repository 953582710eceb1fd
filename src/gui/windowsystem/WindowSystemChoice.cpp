#include "gui/windowsystem/WindowSystemChoice.h"

namespace tidewell {
namespace {

WindowSystemChoice chosen(WindowSystemKind kind, const std::string& description) {
    return {kind, "tidewell: window system: " + description};
}

WindowSystemChoice noWindowSystem(const std::string& reason) {
    return {WindowSystemKind::none, "tidewell: no window system: " + reason};
}

} // namespace

WindowSystemChoice chooseWindowSystem(const Session& session) {
    constexpr auto trigger = ": the shelf opens from a trigger window";
    switch (session.compositor) {
    case WaylandCompositor::withLayerShell:
        return chosen(WindowSystemKind::waylandLayerShell, "Wayland with layer shell");
    case WaylandCompositor::withoutLayerShell:
        if (session.hasX11Display)
            return chosen(WindowSystemKind::x11TriggerWindow,
                          std::string("X11 under XWayland (the compositor has no layer shell)") +
                              trigger);
        return noWindowSystem("the Wayland compositor has no layer shell and DISPLAY is not set "
                              "for XWayland");
    case WaylandCompositor::absent:
        break;
    }
    if (!session.hasX11Display)
        return noWindowSystem(session.isWaylandSession
                                  ? "no Wayland compositor answered and DISPLAY is not set"
                                  : "neither WAYLAND_DISPLAY nor DISPLAY is set");
    if (session.isWaylandSession)
        return chosen(WindowSystemKind::x11TriggerWindow,
                      std::string("X11 under XWayland (no Wayland compositor answered)") + trigger);
    return chosen(WindowSystemKind::x11RawMotion, "X11: the shelf follows the pointer's moves");
}

} // namespace tidewell
