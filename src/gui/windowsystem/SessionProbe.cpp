#include "gui/windowsystem/SessionProbe.h"

#include <cstdlib>
#include <cstring>
#include <string_view>
#include <wayland-client.h>

namespace tidewell {
namespace {

std::string_view variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

void announceGlobal(void* data, wl_registry*, std::uint32_t, const char* interface, std::uint32_t) {
    if (std::strcmp(interface, "zwlr_layer_shell_v1") == 0)
        *static_cast<bool*>(data) = true;
}

void removeGlobal(void*, wl_registry*, std::uint32_t) {}

constexpr wl_registry_listener registryListener{announceGlobal, removeGlobal};

// Connects to WAYLAND_DISPLAY, or to the default socket without it.
WaylandCompositor probeCompositor() {
    wl_display* display = wl_display_connect(nullptr);
    if (!display)
        return WaylandCompositor::absent;
    bool hasLayerShell = false;
    wl_registry* registry = wl_display_get_registry(display);
    wl_registry_add_listener(registry, &registryListener, &hasLayerShell);
    const bool answered = wl_display_roundtrip(display) >= 0;
    wl_registry_destroy(registry);
    wl_display_disconnect(display);
    if (!answered)
        return WaylandCompositor::absent;
    return hasLayerShell ? WaylandCompositor::withLayerShell : WaylandCompositor::withoutLayerShell;
}

} // namespace

Session currentSession() {
    Session session{.isWaylandSession = variable("XDG_SESSION_TYPE") == "wayland",
                    .hasX11Display = !variable("DISPLAY").empty()};
    if (session.isWaylandSession || !variable("WAYLAND_DISPLAY").empty())
        session.compositor = probeCompositor();
    return session;
}

} // namespace tidewell
