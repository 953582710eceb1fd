// The user's hand on a Wayland desktop without input devices, for the end-to-end tests:
//   tidewell_virtual_pointer_probe WIDTH HEIGHT
// moves a pointer over a layout of WIDTH x HEIGHT by the lines on standard input: "move X Y",
// "press BUTTON" or "release BUTTON" (left or right). It says "ready" first and "ok" once the
// compositor has handled each line. The pointer ends with the program.

#include "wayland-wlr-virtual-pointer-unstable-v1-client-protocol.h"

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

const wl_registry_listener registryListener = {
    [](void*, wl_registry* registry, std::uint32_t name, const char* interface, std::uint32_t) {
        if (std::strcmp(interface, zwlr_virtual_pointer_manager_v1_interface.name) == 0)
            manager = static_cast<zwlr_virtual_pointer_manager_v1*>(
                wl_registry_bind(registry, name, &zwlr_virtual_pointer_manager_v1_interface, 1));
    },
    [](void*, wl_registry*, std::uint32_t) {}};

// Sends the command's events as one frame; false when the line is none.
bool perform(zwlr_virtual_pointer_v1* pointer, const std::string& line, std::uint32_t width,
             std::uint32_t height) {
    using namespace std::chrono;
    const auto time = static_cast<std::uint32_t>(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
    std::istringstream words(line);
    std::string verb, button;
    std::uint32_t x = 0, y = 0;
    if (words >> verb && verb == "move" && words >> x >> y)
        zwlr_virtual_pointer_v1_motion_absolute(pointer, time, x, y, width, height);
    else if (words >> button && (verb == "press" || verb == "release"))
        zwlr_virtual_pointer_v1_button(pointer, time, button == "right" ? BTN_RIGHT : BTN_LEFT,
                                       verb == "press" ? WL_POINTER_BUTTON_STATE_PRESSED
                                                       : WL_POINTER_BUTTON_STATE_RELEASED);
    else
        return false;
    zwlr_virtual_pointer_v1_frame(pointer);
    return true;
}

} // namespace

int main(int argc, char** argv) {
    wl_display* display = argc == 3 ? wl_display_connect(nullptr) : nullptr;
    if (display) {
        wl_registry_add_listener(wl_display_get_registry(display), &registryListener, nullptr);
        wl_display_roundtrip(display);
    }
    auto* pointer = manager
                        ? zwlr_virtual_pointer_manager_v1_create_virtual_pointer(manager, nullptr)
                        : nullptr;
    if (!pointer || wl_display_roundtrip(display) < 0) {
        std::cerr << "usage: tidewell_virtual_pointer_probe WIDTH HEIGHT, on a Wayland desktop "
                     "with virtual pointers\n";
        return 2;
    }
    std::cout << "ready" << std::endl;
    for (std::string line; std::getline(std::cin, line); std::cout << "ok" << std::endl)
        if (!perform(pointer, line, std::stoul(argv[1]), std::stoul(argv[2])) ||
            wl_display_roundtrip(display) < 0) {
            std::cerr << "tidewell_virtual_pointer_probe: cannot " << line << "\n";
            return 1;
        }
    return 0;
}
