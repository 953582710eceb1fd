#include "support/VirtualDisplay.h"

#include "support/WaitUntil.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace tidewell::testing {
namespace {

// This process's environment, DISPLAY included, with the system's data folders, which the gui
// tests' desktop hides: the window manager finds its theme there.
ChildProcess::Launch inherited(const std::vector<std::string>& arguments) {
    ChildProcess::Launch launch{.arguments = arguments, .workingDirectory = "/"};
    for (char** variable = environ; *variable; ++variable) {
        const std::string entry = *variable;
        launch.environment[entry.substr(0, entry.find('='))] = entry.substr(entry.find('=') + 1);
    }
    launch.environment["XDG_CONFIG_DIRS"] = "/etc/xdg";
    launch.environment["XDG_DATA_DIRS"] = "/usr/local/share:/usr/share";
    return launch;
}

// Runs an X client on the display to its end; throws when it fails.
void runClient(const std::vector<std::string>& arguments) {
    if (ChildProcess::run(inherited(arguments)).status != 0)
        throw std::runtime_error(arguments.front() + " failed: " + arguments.at(1));
}

// No input devices of the machine: the tests' pointer and keys come through XTest. The server
// keeps the pointer inside its one output's mode: a mode as large as the framebuffer, 10 frames
// a second, within the monitor's ranges.
std::string xorgConfiguration(int width, int height) {
    const auto number = [](int value) { return " " + std::to_string(value); };
    char clock[32];
    std::snprintf(clock, sizeof clock, "%.2f", (width + 24) * (height + 3) * 10 / 1e6);
    return R"(Section "ServerFlags"
  Option "AutoAddDevices" "false"
EndSection
Section "Device"
  Identifier "card"
  Driver "dummy"
  VideoRam 256000
EndSection
Section "Monitor"
  Identifier "monitor"
  HorizSync 5.0-1000.0
  VertRefresh 5.0-200.0
  Modeline "framebuffer" )" +
           std::string(clock) + number(width) + number(width + 8) + number(width + 16) +
           number(width + 24) + number(height) + number(height + 1) + number(height + 2) +
           number(height + 3) + R"(
EndSection
Section "Screen"
  Identifier "screen"
  Device "card"
  Monitor "monitor"
  DefaultDepth 24
  SubSection "Display"
    Depth 24
    Virtual)" +
           number(width) + number(height) + R"(
    Modes "framebuffer"
  EndSubSection
EndSection
)";
}

// Sizes in millimetres at 96 dots per inch, "1920/508x1080/286+0+0".
std::string geometry(const Monitor& monitor) {
    const auto millimetres = [](int pixels) { return std::lround(pixels * 25.4 / 96); };
    return std::to_string(monitor.width) + "/" + std::to_string(millimetres(monitor.width)) + "x" +
           std::to_string(monitor.height) + "/" + std::to_string(millimetres(monitor.height)) +
           "+" + std::to_string(monitor.x) + "+" + std::to_string(monitor.y);
}

} // namespace

// Servers started side by side by parallel tests now and then lose a race at start-up (seen as
// a window manager that ends at once, even three times running); a fresh server a moment later
// is the cure. Every attempt's reason is kept for the report.
VirtualDisplay::VirtualDisplay(const std::vector<Monitor>& monitors, int width, int height) {
    const auto number = [](int value) { return std::to_string(value); };
    std::vector<std::string> server = {
        "Xvfb", "-screen", "0", number(width) + "x" + number(height) + "x24", "-nolisten", "tcp"};
    if (!monitors.empty()) {
        server = {"Xorg", "-noreset", "-nolisten", "tcp", "-sharevts", "-novtswitch"};
        server.insert(server.end(),
                      {"-config", folder_.write("xorg.conf", xorgConfiguration(width, height)),
                       "-configdir", folder_.makeFolder("xorg.conf.d"), "-logfile",
                       folder_.path() + "/xorg.log"});
    }
    std::string failures;
    for (int attempt = 1;; ++attempt) {
        try {
            start(server);
            break;
        } catch (const std::runtime_error& failure) {
            windowManager_.reset();
            server_.reset();
            failures += "\n" + std::string(failure.what());
            if (attempt == 4)
                throw std::runtime_error("no virtual display after four attempts:" + failures);
            // Whatever ends the window manager at once has passed after a moment.
            std::this_thread::sleep_for(std::chrono::milliseconds(500 * attempt));
        }
    }
    for (const Monitor& monitor : monitors)
        addMonitor(monitor, &monitor == &monitors.front());
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
        !windowManager_->isRunning()) {
        const ProcessResult ended = windowManager_->wait(std::chrono::milliseconds(0));
        throw std::runtime_error("openbox did not start (status " + std::to_string(ended.status) +
                                 ", server " + (server_->isRunning() ? "running" : "ended") +
                                 "): " + ended.standardError + server_->standardError());
    }
}

void VirtualDisplay::removeMonitor(const std::string& name) {
    runClient({"xrandr", "--delmonitor", name});
}

// Only one monitor may show the server's one output; a "*" before the name makes it primary.
void VirtualDisplay::addMonitor(const Monitor& monitor, bool isPrimary) {
    runClient({"xrandr", "--setmonitor", (isPrimary ? "*" : "") + monitor.name, geometry(monitor),
               isPrimary ? "DUMMY0" : "none"});
}

} // namespace tidewell::testing
