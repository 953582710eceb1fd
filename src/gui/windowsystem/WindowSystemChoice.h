#pragma once

#include <string>

namespace tidewell {

// What the Wayland compositor named by the session offers, if one answers.
enum class WaylandCompositor { absent, withoutLayerShell, withLayerShell };

// The session as the application finds it at start.
struct Session {
    WaylandCompositor compositor = WaylandCompositor::absent;
    // XDG_SESSION_TYPE is "wayland": an X display there is XWayland.
    bool isWaylandSession = false;
    // DISPLAY is set.
    bool hasX11Display = false;
};

enum class WindowSystemKind {
    // A layer surface at the top of each output.
    waylandLayerShell,
    // The X11 backend under XWayland: raw motion does not arrive over Wayland windows, so a
    // trigger window at the top edge takes the pointer instead.
    x11TriggerWindow,
    // The X11 backend following the pointer's raw motion everywhere.
    x11RawMotion,
    none,
};

struct WindowSystemChoice {
    WindowSystemKind kind;
    // One line for standard error: the choice and why.
    std::string line;
    bool operator==(const WindowSystemChoice&) const = default;
};

// Decided once, at start.
WindowSystemChoice chooseWindowSystem(const Session& session);

} // namespace tidewell
