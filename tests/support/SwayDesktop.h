#pragma once

#include "support/ChildProcess.h"
#include "support/TemporaryDirectory.h"
#include "support/WaitUntil.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace tidewell::testing {

// A Wayland desktop of the test's own: sway on wlroots' headless backend, drawing in software,
// without bar or XWayland, two outputs side by side over one colour, its sockets in the runtime
// folder given. Windows float; the drag source probe's covers the first output. Without input
// devices the user's hand is a virtual pointer client (`pointerProgram`), drawn into screenshots.
class SwayDesktop {
public:
    static constexpr int outputWidth = 1920;
    static constexpr int outputHeight = 1080;
    static constexpr int layoutWidth = 2 * outputWidth;
    static constexpr unsigned long background = 0x33AA55;

    // The top rows of the layout, all that the tests look at, as colours 0xRRGGBB.
    struct Screenshot {
        static constexpr int height = 256;
        std::vector<unsigned long> pixels;

        unsigned long pixel(int x, int y) const { return pixels.at(y * layoutWidth + x); }
        // How wide the unbroken run of the colour through the pixel is, along its row.
        int runThrough(int x, int y, unsigned long colour) const {
            int left = x;
            int right = x; // one past the run
            while (right < layoutWidth && pixel(right, y) == colour)
                ++right;
            while (left > 0 && right > x && pixel(left - 1, y) == colour)
                --left;
            return right - left;
        }
    };

    SwayDesktop(const std::string& runtimeFolder, const std::string& pointerProgram)
        : runtimeFolder_(runtimeFolder) {
        sway_ = std::make_unique<ChildProcess>(ChildProcess::Launch{
            .arguments = {"sway", "--config", folder_.write("config", configuration)},
            .workingDirectory = folder_.path(),
            .environment = {{"PATH", std::getenv("PATH")}, // sway starts swaybg
                            {"HOME", folder_.path()},
                            {"XDG_RUNTIME_DIR", runtimeFolder},
                            {"SWAYSOCK", runtimeFolder + "/sway.sock"},
                            {"WLR_BACKENDS", "headless"},
                            {"WLR_LIBINPUT_NO_DEVICES", "1"},
                            {"WLR_RENDERER", "pixman"},
                            {"WLR_HEADLESS_OUTPUTS", "2"}}});
        // Ready once the background is drawn on both outputs.
        waitFor(
            [&] {
                try {
                    return screenshot().runThrough(0, 100, background) == layoutWidth;
                } catch (const std::runtime_error&) {
                    return false;
                }
            },
            *sway_, "sway never drew its background");
        pointer_ = std::make_unique<ChildProcess>(
            ChildProcess::Launch{.arguments = {pointerProgram, std::to_string(layoutWidth),
                                               std::to_string(outputHeight)},
                                 .workingDirectory = "/",
                                 .environment = environment(),
                                 .takesInput = true});
        send("");
    }

    // As a client of the desktop has them: the runtime folder is the test's own, so the display
    // is the first name a compositor takes.
    std::map<std::string, std::string> environment() const {
        return {{"WAYLAND_DISPLAY", "wayland-1"},
                {"XDG_RUNTIME_DIR", runtimeFolder_},
                {"SWAYSOCK", runtimeFolder_ + "/sway.sock"}};
    }

    Screenshot screenshot() const {
        const std::string area =
            "0,0 " + std::to_string(layoutWidth) + "x" + std::to_string(Screenshot::height);
        const ProcessResult grim =
            ChildProcess::run({.arguments = {"grim", "-g", area, "-t", "ppm", "-"},
                               .workingDirectory = folder_.path(),
                               .environment = environment()});
        // The samples, 8 bits each, end the picture after its header.
        const std::size_t size = std::size_t{3} * layoutWidth * Screenshot::height;
        if (grim.status != 0 || grim.standardOutput.size() < size)
            throw std::runtime_error("grim: " + grim.standardError);
        const auto* sample = reinterpret_cast<const unsigned char*>(
            grim.standardOutput.data() + grim.standardOutput.size() - size);
        Screenshot shot;
        for (std::size_t at = 0; at < size; at += 3)
            shot.pixels.push_back(sample[at] << 16 | sample[at + 1] << 8 | sample[at + 2]);
        return shot;
    }

    // The hand, each move returning once the compositor has handled it. Buttons: left, right.
    void moveTo(int x, int y) {
        send("move " + std::to_string(x) + " " + std::to_string(y));
        x_ = x;
        y_ = y;
    }
    void press(const std::string& button = "left") { send("press " + button); }
    void release(const std::string& button = "left") { send("release " + button); }
    void click(const std::string& button = "left") {
        press(button);
        release(button);
    }
    // With the button held, from the pointer's place in steps of 8 pixels at most, each left to
    // the programs for a moment: a drag's exchanges run at their own pace.
    void dragTo(int x, int y) {
        const int fromX = x_;
        const int fromY = y_;
        const int steps = std::max(1, static_cast<int>(std::hypot(x - fromX, y - fromY) / 8));
        for (int step = 1; step <= steps; ++step) {
            moveTo(fromX + (x - fromX) * step / steps, fromY + (y - fromY) * step / steps);
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }

private:
    static constexpr const char* configuration = R"(xwayland disable
default_border none
for_window [app_id=".*"] floating enable
for_window [app_id="tidewell_drag_source_probe"] resize set 1920 1080, move absolute position 0 0
output HEADLESS-1 mode 1920x1080 position 0 0 bg #33AA55 solid_color
output HEADLESS-2 mode 1920x1080 position 1920 0 bg #33AA55 solid_color
)";

    static void waitFor(const std::function<bool()>& condition, const ChildProcess& process,
                        const std::string& what) {
        if (!waitUntil(condition, std::chrono::seconds(15)))
            throw std::runtime_error(what + ": " + process.standardOutput() +
                                     process.standardError());
    }

    // An empty command only waits for the pointer's first answer, "ready".
    void send(const std::string& command) {
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

    std::string runtimeFolder_;
    TemporaryDirectory folder_;
    std::unique_ptr<ChildProcess> sway_;
    std::unique_ptr<ChildProcess> pointer_;
    int answers_ = 0;
    int x_ = 0;
    int y_ = 0;
};

} // namespace tidewell::testing
