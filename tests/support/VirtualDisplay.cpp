#include "support/VirtualDisplay.h"

#include "support/WaitUntil.h"

#include <stdexcept>
#include <unistd.h>

extern char** environ;

namespace tidewell::testing {
namespace {

// This process's environment, DISPLAY included: the window manager finds its theme through it.
ChildProcess::Launch inherited(const std::vector<std::string>& arguments) {
    ChildProcess::Launch launch{.arguments = arguments, .workingDirectory = "/"};
    for (char** variable = environ; *variable; ++variable) {
        const std::string entry = *variable;
        launch.environment[entry.substr(0, entry.find('='))] = entry.substr(entry.find('=') + 1);
    }
    return launch;
}

} // namespace

VirtualDisplay::VirtualDisplay()
    : VirtualDisplay({"Xvfb", "-screen", "0", "1920x1080x24", "-nolisten", "tcp"}) {}

// Servers started side by side by parallel tests now and then lose a race at start-up (seen as
// a window manager that ends at once); a fresh server is the cure.
VirtualDisplay::VirtualDisplay(const std::vector<std::string>& server) {
    for (int attempt = 1;; ++attempt) {
        try {
            start(server);
            return;
        } catch (const std::runtime_error&) {
            windowManager_.reset();
            server_.reset();
            if (attempt == 3)
                throw;
        }
    }
}

// The server writes the display number it chose once it accepts clients; tests expect a
// managed desktop from the start, so openbox must have announced itself on the root window.
void VirtualDisplay::start(const std::vector<std::string>& server) {
    std::vector<std::string> arguments = server;
    arguments.insert(arguments.end(), {"-displayfd", "1"});
    server_ = std::make_unique<ChildProcess>(inherited(arguments));
    if (!server_->waitForOutput("\n"))
        throw std::runtime_error(server.front() + " did not start");
    name_ = ":" + server_->standardOutput();
    name_.pop_back();
    environment_.set("DISPLAY", name_);
    windowManager_ = std::make_unique<ChildProcess>(inherited({"openbox", "--sm-disable"}));
    const auto announced = [] {
        return ChildProcess::run(inherited({"xprop", "-root", "_NET_SUPPORTING_WM_CHECK"}))
                   .standardOutput.find("window id") != std::string::npos;
    };
    if (!waitUntil([&] { return announced() || !windowManager_->isRunning(); },
                   std::chrono::seconds(10)) ||
        !windowManager_->isRunning())
        throw std::runtime_error("openbox did not start");
}

void VirtualDisplay::runClient(const std::vector<std::string>& arguments) {
    if (ChildProcess::run(inherited(arguments)).status != 0)
        throw std::runtime_error(arguments.front() + " failed: " + arguments.at(1));
}

} // namespace tidewell::testing
