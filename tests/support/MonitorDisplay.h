#pragma once

#include "support/TemporaryDirectory.h"
#include "support/VirtualDisplay.h"

#include <string>
#include <vector>

namespace tidewell::testing {

// A rectangle of the X screen, in pixels, that clients take for a display of its own.
struct Monitor {
    std::string name;
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

// Xorg's configuration, written before the server starts.
struct XorgConfiguration {
    XorgConfiguration(int width, int height);

    TemporaryDirectory folder;
    std::string file;
};

// A virtual display of several monitors, as Qt sees them: Xorg with the dummy video driver
// (Xvfb puts every screen at the origin), its framebuffer of width x height pixels split into
// RandR monitors. The first monitor is the primary one.
class MonitorDisplay : private XorgConfiguration, public VirtualDisplay {
public:
    MonitorDisplay(int width, int height, const std::vector<Monitor>& monitors);

    // Clients see the monitor go, and a new one come: moving a monitor is both.
    void removeMonitor(const std::string& name);
    void addMonitor(const Monitor& monitor, bool isPrimary = false);
};

} // namespace tidewell::testing
