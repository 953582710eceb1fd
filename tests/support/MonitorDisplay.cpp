#include "support/MonitorDisplay.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace tidewell::testing {
namespace {

// No input devices of the machine: the tests' pointer and keys come through XTest.
std::string configuration(int width, int height) {
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
EndSection
Section "Screen"
  Identifier "screen"
  Device "card"
  Monitor "monitor"
  DefaultDepth 24
  SubSection "Display"
    Depth 24
    Virtual )" +
           std::to_string(width) + " " + std::to_string(height) + R"(
  EndSubSection
EndSection
)";
}

std::vector<std::string> xorg(const XorgConfiguration& configuration) {
    return {"Xorg",
            "-config",
            configuration.file,
            "-configdir",
            configuration.folder.makeFolder("xorg.conf.d"),
            "-logfile",
            configuration.folder.path() + "/xorg.log",
            "-noreset",
            "-nolisten",
            "tcp",
            "-sharevts",
            "-novtswitch"};
}

// Sizes in millimetres at 96 dots per inch, "1920/508x1080/286+0+0".
std::string geometry(const Monitor& monitor) {
    const auto millimetres = [](int pixels) { return std::lround(pixels * 25.4 / 96); };
    return std::to_string(monitor.width) + "/" + std::to_string(millimetres(monitor.width)) + "x" +
           std::to_string(monitor.height) + "/" + std::to_string(millimetres(monitor.height)) +
           "+" + std::to_string(monitor.x) + "+" + std::to_string(monitor.y);
}

} // namespace

XorgConfiguration::XorgConfiguration(int width, int height)
    : file(folder.write("xorg.conf", configuration(width, height))) {}

MonitorDisplay::MonitorDisplay(int width, int height, const std::vector<Monitor>& monitors)
    : XorgConfiguration(width, height), VirtualDisplay(xorg(*this)) {
    // The server keeps the pointer inside its one output's mode: a mode as large as the
    // framebuffer, 10 frames a second, within the monitor's ranges.
    const auto number = [](int value) { return std::to_string(value); };
    char clock[32];
    std::snprintf(clock, sizeof clock, "%.2f", (width + 24) * (height + 3) * 10 / 1e6);
    runClient({"xrandr", "--fb", number(width) + "x" + number(height)});
    runClient({"xrandr", "--newmode", "framebuffer", clock, number(width), number(width + 8),
               number(width + 16), number(width + 24), number(height), number(height + 1),
               number(height + 2), number(height + 3)});
    runClient({"xrandr", "--addmode", "DUMMY0", "framebuffer"});
    runClient({"xrandr", "--output", "DUMMY0", "--mode", "framebuffer"});
    for (const Monitor& monitor : monitors)
        addMonitor(monitor, &monitor == &monitors.front());
}

void MonitorDisplay::removeMonitor(const std::string& name) {
    runClient({"xrandr", "--delmonitor", name});
}

// Only one monitor may show the server's one output; a "*" before the name makes it primary.
void MonitorDisplay::addMonitor(const Monitor& monitor, bool isPrimary) {
    runClient({"xrandr", "--setmonitor", (isPrimary ? "*" : "") + monitor.name, geometry(monitor),
               isPrimary ? "DUMMY0" : "none"});
}

} // namespace tidewell::testing
