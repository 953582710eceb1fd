#include "support/SwayDesktop.h"

#include "support/WaitUntil.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <thread>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

// Windows float, at the size they ask for; the drag source probe's covers the first output.
constexpr const char* configuration = R"(xwayland disable
default_border none
for_window [app_id=".*"] floating enable
for_window [app_id="tidewell_drag_source_probe"] resize set 1920 1080, move absolute position 0 0
output HEADLESS-1 mode 1920x1080 position 0 0 bg #33AA55 solid_color
output HEADLESS-2 mode 1920x1080 position 1920 0 bg #33AA55 solid_color
)";

void waitFor(const std::function<bool()>& condition, const ChildProcess& process,
             const std::string& what) {
    if (!waitUntil(condition, 15s))
        throw std::runtime_error(what + ": " + process.standardOutput() + process.standardError());
}

std::string path() {
    const char* path = std::getenv("PATH");
    return path ? path : "/usr/bin:/bin";
}

} // namespace

SwayDesktop::SwayDesktop(const std::string& runtimeFolder, const std::string& pointerProgram)
    : runtimeFolder_(runtimeFolder),
      sway_(std::make_unique<ChildProcess>(ChildProcess::Launch{
          .arguments = {"sway", "--config", folder_.write("config", configuration)},
          .workingDirectory = folder_.path(),
          .environment = {{"PATH", path()},
                          {"HOME", folder_.path()},
                          {"XDG_RUNTIME_DIR", runtimeFolder},
                          {"SWAYSOCK", runtimeFolder + "/sway.sock"},
                          {"WLR_BACKENDS", "headless"},
                          {"WLR_LIBINPUT_NO_DEVICES", "1"},
                          {"WLR_RENDERER", "pixman"},
                          {"WLR_HEADLESS_OUTPUTS", "2"}}})) {
    // Ready once the background is drawn on both outputs.
    waitFor(
        [&] {
            try {
                const Screenshot shot = screenshot();
                return shot.pixel(outputWidth / 2, 100) == background &&
                       shot.pixel(outputWidth * 3 / 2, 100) == background;
            } catch (const std::runtime_error&) {
                return false;
            }
        },
        *sway_, "sway never drew its background");
    pointer_ = std::make_unique<ChildProcess>(ChildProcess::Launch{
        .arguments = {pointerProgram, std::to_string(layoutWidth), std::to_string(outputHeight)},
        .workingDirectory = "/",
        .environment = environment(),
        .takesInput = true});
    send("");
}

std::map<std::string, std::string> SwayDesktop::environment() const {
    // The first name a compositor takes; the runtime folder is the test's own.
    return {{"WAYLAND_DISPLAY", "wayland-1"},
            {"XDG_RUNTIME_DIR", runtimeFolder_},
            {"SWAYSOCK", runtimeFolder_ + "/sway.sock"}};
}

SwayDesktop::Screenshot SwayDesktop::screenshot() const {
    const std::string area =
        "0,0 " + std::to_string(layoutWidth) + "x" + std::to_string(Screenshot::height);
    auto variables = environment();
    variables["PATH"] = path();
    const ProcessResult grim =
        ChildProcess::run({.arguments = {"grim", "-g", area, "-t", "ppm", "-"},
                           .workingDirectory = folder_.path(),
                           .environment = variables});
    // The samples, 8 bits each, end the picture after its header.
    const std::size_t size = std::size_t{3} * layoutWidth * Screenshot::height;
    if (grim.status != 0 || grim.standardOutput.size() < size)
        throw std::runtime_error("grim: " + grim.standardError);
    const auto* sample = reinterpret_cast<const unsigned char*>(grim.standardOutput.data() +
                                                                grim.standardOutput.size() - size);
    Screenshot shot;
    for (std::size_t at = 0; at < size; at += 3)
        shot.pixels.push_back(sample[at] << 16 | sample[at + 1] << 8 | sample[at + 2]);
    return shot;
}

int SwayDesktop::Screenshot::runThrough(int x, int y, unsigned long colour) const {
    int left = x;
    int right = x; // one past the run
    while (right < layoutWidth && pixel(right, y) == colour)
        ++right;
    while (left > 0 && right > x && pixel(left - 1, y) == colour)
        --left;
    return right - left;
}

// An empty command only waits for the pointer's first answer, "ready".
void SwayDesktop::send(const std::string& command) {
    if (!command.empty())
        pointer_->writeInput(command + "\n");
    const int answer = answers_++;
    waitFor(
        [&] {
            const std::string said = pointer_->standardOutput();
            return std::count(said.begin(), said.end(), '\n') > answer;
        },
        *pointer_, "the virtual pointer did not answer " + command);
}

void SwayDesktop::moveTo(int x, int y) {
    send("move " + std::to_string(x) + " " + std::to_string(y));
    x_ = x;
    y_ = y;
}

// Steps of 8 pixels at most, each left to the programs for a moment: a drag's exchanges
// between source, compositor and target run at their own pace.
void SwayDesktop::dragTo(int x, int y) {
    const auto [fromX, fromY] = std::pair(x_, y_);
    const int steps = std::max(1, static_cast<int>(std::hypot(x - fromX, y - fromY) / 8));
    for (int step = 1; step <= steps; ++step) {
        moveTo(fromX + (x - fromX) * step / steps, fromY + (y - fromY) * step / steps);
        std::this_thread::sleep_for(5ms);
    }
}

} // namespace tidewell::testing
