#pragma once

#include "support/ChildProcess.h"
#include "support/ScopedEnvironment.h"

#include <memory>
#include <string>
#include <vector>

namespace tidewell::testing {

// An X server of its own (Xvfb, 1920 x 1080, 24 bits) with a real window manager
// (openbox), made the display of this process and of the programs it starts through
// DISPLAY until the object goes away.
class VirtualDisplay {
public:
    VirtualDisplay();
    virtual ~VirtualDisplay() = default;
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    const std::string& name() const { return name_; } // ":<number>"

protected:
    // Another X server: the program and its arguments, to which "-displayfd 1" is added.
    explicit VirtualDisplay(const std::vector<std::string>& server);
    // Runs an X client on the display to its end; throws when it fails.
    static void runClient(const std::vector<std::string>& arguments);

private:
    void start(const std::vector<std::string>& server);

    std::unique_ptr<ChildProcess> server_;
    std::unique_ptr<ChildProcess> windowManager_;
    std::string name_;
    ScopedEnvironment environment_;
};

} // namespace tidewell::testing
