#pragma once

#include "support/ChildProcess.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

#include <memory>
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

// An X server of its own with a real window manager (openbox), made the display of this
// process and of the programs it starts through DISPLAY until the object goes away. Without
// monitors it is one 1920 x 1080 screen of Xvfb. Qt tells monitors apart only on Xorg with the
// dummy video driver (Xvfb puts every screen at the origin): with monitors, its framebuffer of
// width x height pixels is split into RandR monitors, the first one primary.
class VirtualDisplay {
public:
    explicit VirtualDisplay(const std::vector<Monitor>& monitors = {}, int width = 1920,
                            int height = 1080);
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    const std::string& name() const { return name_; } // ":<number>"
    // Clients see the monitor go, and a new one come: moving a monitor is both.
    void removeMonitor(const std::string& name);
    void addMonitor(const Monitor& monitor, bool isPrimary = false);

private:
    void start(const std::vector<std::string>& server);

    TemporaryDirectory folder_; // Xorg's configuration and log
    std::unique_ptr<ChildProcess> server_;
    std::unique_ptr<ChildProcess> windowManager_;
    std::string name_;
    ScopedEnvironment environment_;
};

} // namespace tidewell::testing
