#pragma once

#include "support/ScopedEnvironment.h"

#include <string>
#include <sys/types.h>
#include <vector>

namespace tidewell::testing {

// An X server of its own (Xvfb, 1920 x 1080, 24 bits) with a real window manager
// (openbox), made the display of this process and of the programs it starts through
// DISPLAY until the object goes away.
class VirtualDisplay {
public:
    VirtualDisplay();
    virtual ~VirtualDisplay();
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    const std::string& name() const { return name_; } // ":<number>"

protected:
    // Another X server: the program and its arguments, to which "-displayfd <fd>" is added.
    explicit VirtualDisplay(const std::vector<std::string>& server);
    // Runs an X client on the display to its end; throws when it fails.
    static void runClient(const std::vector<std::string>& arguments);

private:
    void start(const std::vector<std::string>& server);
    void startWindowManager();

    pid_t server_ = -1;
    pid_t windowManager_ = -1;
    std::string name_;
    ScopedEnvironment environment_;
};

} // namespace tidewell::testing
