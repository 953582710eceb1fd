// The user's hand on a Wayland desktop whose compositor has no input devices: a pointer of
// the seat that this client drives, for the end-to-end tests.
//
//   tidewell_virtual_pointer_probe WIDTH HEIGHT
//
// WIDTH x HEIGHT is the size of the output layout. Commands, one a line on standard input:
// "move X Y" (absolute, in the layout), "press BUTTON" and "release BUTTON" (BUTTON is
// "left" or "right"). Each is answered with "ok" once the compositor has handled it, or with
// "error" when it cannot be understood. "ready" comes first, once the pointer exists. The
// pointer lives as long as the program: its end takes the pointer away from every surface.

#include "wlr-virtual-pointer-unstable-v1-client-protocol.h"

#include <chrono>
#include <cstdint>
#include <cstring>
#include <iostream>
#include <linux/input-event-codes.h>
#include <sstream>
#include <string>
#include <wayland-client.h>

namespace {

zwlr_virtual_pointer_manager_v1* manager = nullptr;

void announce(void*, wl_registry* registry, std::uint32_t name, const char* interface,
              std::uint32_t) {
    if (std::strcmp(interface, zwlr_virtual_pointer_manager_v1_interface.name) == 0)
        manager = static_cast<zwlr_virtual_pointer_manager_v1*>(
            wl_registry_bind(registry, name, &zwlr_virtual_pointer_manager_v1_interface, 1));
}

void withdraw(void*, wl_registry*, std::uint32_t) {}

const wl_registry_listener registryListener = {announce, withdraw};

std::uint32_t now() {
    using namespace std::chrono;
    return static_cast<std::uint32_t>(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

// Sends the command's events as one frame; false when the line is no command.
bool perform(zwlr_virtual_pointer_v1* pointer, const std::string& line, std::uint32_t width,
             std::uint32_t height) {
    std::istringstream words(line);
    std::string verb;
    words >> verb;
    if (verb == "move") {
        std::uint32_t x = 0;
        std::uint32_t y = 0;
        if (!(words >> x >> y) || x >= width || y >= height)
            return false;
        zwlr_virtual_pointer_v1_motion_absolute(pointer, now(), x, y, width, height);
    } else if (verb == "press" || verb == "release") {
        std::string button;
        words >> button;
        if (button != "left" && button != "right")
            return false;
        zwlr_virtual_pointer_v1_button(pointer, now(), button == "left" ? BTN_LEFT : BTN_RIGHT,
                                       verb == "press" ? WL_POINTER_BUTTON_STATE_PRESSED
                                                       : WL_POINTER_BUTTON_STATE_RELEASED);
    } else {
        return false;
    }
    zwlr_virtual_pointer_v1_frame(pointer);
    return true;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: tidewell_virtual_pointer_probe WIDTH HEIGHT\n";
        return 2;
    }
    const auto width = static_cast<std::uint32_t>(std::stoul(argv[1]));
    const auto height = static_cast<std::uint32_t>(std::stoul(argv[2]));
    wl_display* display = wl_display_connect(nullptr);
    if (!display) {
        std::cerr << "tidewell_virtual_pointer_probe: no Wayland display\n";
        return 1;
    }
    wl_registry* registry = wl_display_get_registry(display);
    wl_registry_add_listener(registry, &registryListener, nullptr);
    wl_display_roundtrip(display);
    if (!manager) {
        std::cerr << "tidewell_virtual_pointer_probe: the compositor has no virtual pointers\n";
        return 1;
    }
    zwlr_virtual_pointer_v1* pointer =
        zwlr_virtual_pointer_manager_v1_create_virtual_pointer(manager, nullptr);
    if (wl_display_roundtrip(display) < 0)
        return 1;
    std::cout << "ready" << std::endl;
    for (std::string line; std::getline(std::cin, line);) {
        const bool understood = perform(pointer, line, width, height);
        if (wl_display_roundtrip(display) < 0)
            return 1;
        std::cout << (understood ? "ok" : "error") << std::endl;
    }
    zwlr_virtual_pointer_v1_destroy(pointer);
    wl_display_disconnect(display);
    return 0;
}
