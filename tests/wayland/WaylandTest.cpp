#include "wayland/WaylandTest.h"

namespace tidewell::testing {

using namespace std::chrono_literals;

WaylandTest::WaylandTest(int outputs)
    : desktop(runtimeFolder, outputs, backgroundColour),
      hand(buildFolder() + "/tests/tidewell_virtual_pointer_probe", sessionEnvironment(),
           desktop.layoutWidth(), SwayDesktop::outputHeight) {}

std::map<std::string, std::string> WaylandTest::sessionEnvironment() const {
    auto variables = environment();
    variables.merge(desktop.environment());
    variables["XDG_SESSION_TYPE"] = "wayland";
    return variables;
}

std::unique_ptr<ChildProcess> WaylandTest::startWindow(int x, int y, int width, int height,
                                                       const std::vector<std::string>& paths) {
    std::vector<std::string> arguments = {buildFolder() + "/tests/tidewell_drag_source_probe",
                                          "--at", "0,0"};
    arguments.insert(arguments.end(), paths.begin(), paths.end());
    auto variables = sessionEnvironment();
    variables["QT_QPA_PLATFORM"] = "wayland";
    auto window = std::make_unique<ChildProcess>(ChildProcess::Launch{
        .arguments = arguments, .workingDirectory = home, .environment = variables});
    EXPECT_TRUE(waitForLine(*window, "ready")) << window->standardError();
    desktop.place(window->pid(), x, y, width, height);
    return window;
}

bool WaylandTest::waitForLine(const ChildProcess& client, const std::string& line) {
    return waitUntil(
        [&] {
            return ("\n" + client.standardOutput()).find("\n" + line + "\n") != std::string::npos;
        },
        10s);
}

} // namespace tidewell::testing
