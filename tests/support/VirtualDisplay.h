#pragma once

#include "support/ScopedEnvironment.h"

#include <string>
#include <sys/types.h>

namespace tidewell::testing {

// An X server of its own (Xvfb, 1920 x 1080, 24 bits) with a real window manager
// (openbox), made the display of this process and of the programs it starts through
// DISPLAY until the object goes away.
class VirtualDisplay {
public:
    VirtualDisplay();
    ~VirtualDisplay();
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    const std::string& name() const { return name_; } // ":<number>"

private:
    void start();
    void startWindowManager();

    pid_t server_ = -1;
    pid_t windowManager_ = -1;
    std::string name_;
    ScopedEnvironment environment_;
};

} // namespace tidewell::testing
