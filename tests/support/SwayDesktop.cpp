#include "support/SwayDesktop.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <thread>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

std::string hexColour(unsigned long colour) {
    char text[8];
    std::snprintf(text, sizeof text, "#%06lX", colour);
    return text;
}

std::string configuration(int outputs, unsigned long background) {
    // Windows float, at the size they ask for until a test puts them elsewhere.
    std::string text =
        "xwayland disable\ndefault_border none\nfor_window [app_id=\".*\"] floating enable\n";
    for (int output = 1; output <= outputs; ++output)
        text += "output HEADLESS-" + std::to_string(output) + " mode " +
                std::to_string(SwayDesktop::outputWidth) + "x" +
                std::to_string(SwayDesktop::outputHeight) + " position " +
                std::to_string((output - 1) * SwayDesktop::outputWidth) + " 0 bg " +
                hexColour(background) + " solid_color\n";
    return text;
}

void waitFor(const std::function<bool()>& condition, const ChildProcess& sway,
             const std::string& what) {
    const auto deadline = std::chrono::steady_clock::now() + 15s;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline)
            throw std::runtime_error("sway: " + what + "; it said: " + sway.standardError());
        std::this_thread::sleep_for(20ms);
    }
}

} // namespace

SwayDesktop::SwayDesktop(const std::string& runtimeFolder, int outputs, unsigned long background)
    : runtimeFolder_(runtimeFolder), outputs_(outputs), background_(background) {
    const char* path = std::getenv("PATH");
    sway_ = std::make_unique<ChildProcess>(ChildProcess::Launch{
        .arguments = {"sway", "--config",
                      folder_.write("config", configuration(outputs, background))},
        .workingDirectory = folder_.path(),
        .environment = {{"PATH", path ? path : "/usr/bin:/bin"},
                        {"HOME", folder_.path()},
                        {"XDG_RUNTIME_DIR", runtimeFolder},
                        {"WLR_BACKENDS", "headless"},
                        {"WLR_LIBINPUT_NO_DEVICES", "1"},
                        {"WLR_RENDERER", "pixman"},
                        {"WLR_HEADLESS_OUTPUTS", std::to_string(outputs)}}});
    waitUntilReady();
}

SwayDesktop::~SwayDesktop() {
    ::kill(sway_->pid(), SIGTERM);
    sway_->wait(5s);
}

void SwayDesktop::waitUntilReady() {
    waitFor(
        [&] {
            for (const auto& entry : std::filesystem::directory_iterator(runtimeFolder_))
                if (entry.is_socket() && entry.path().filename().string().starts_with("wayland-"))
                    socket_ = entry.path().filename();
            return !socket_.empty() && std::filesystem::exists(ipcSocket());
        },
        *sway_, "its sockets never appeared");
    // Ready once it answers and the background is drawn on every output.
    waitFor(
        [&] {
            if (run({"swaymsg", "-t", "get_outputs"}).status != 0)
                return false;
            try {
                const Screenshot shot = screenshot();
                for (int output = 0; output < outputs_; ++output)
                    if (shot.pixel(output * outputWidth + outputWidth / 2, outputHeight / 2) !=
                        background_)
                        return false;
                return shot.width() == layoutWidth();
            } catch (const std::runtime_error&) {
                return false;
            }
        },
        *sway_, "the background was never drawn");
}

std::map<std::string, std::string> SwayDesktop::environment() const {
    return {{"WAYLAND_DISPLAY", socket_},
            {"XDG_RUNTIME_DIR", runtimeFolder_},
            {"SWAYSOCK", ipcSocket()}};
}

std::string SwayDesktop::ipcSocket() const {
    return runtimeFolder_ + "/sway-ipc." + std::to_string(::getuid()) + "." +
           std::to_string(sway_->pid()) + ".sock";
}

ProcessResult SwayDesktop::run(const std::vector<std::string>& arguments) const {
    auto environment = this->environment();
    const char* path = std::getenv("PATH");
    environment["PATH"] = path ? path : "/usr/bin:/bin";
    return ChildProcess::run(
        {.arguments = arguments, .workingDirectory = folder_.path(), .environment = environment});
}

Screenshot SwayDesktop::screenshot() const {
    const ProcessResult grim = run({"grim", "-t", "ppm", "-"});
    if (grim.status != 0)
        throw std::runtime_error("grim: " + grim.standardError);
    return Screenshot::fromPpm(grim.standardOutput);
}

void SwayDesktop::command(const std::string& text) const {
    const ProcessResult result = run({"swaymsg", text});
    if (result.status != 0)
        throw std::runtime_error("swaymsg " + text + ": " + result.standardOutput +
                                 result.standardError);
}

void SwayDesktop::place(pid_t client, int x, int y, int width, int height) const {
    command("[pid=" + std::to_string(client) + "] floating enable, resize set " +
            std::to_string(width) + " " + std::to_string(height) + ", move absolute position " +
            std::to_string(x) + " " + std::to_string(y));
}

} // namespace tidewell::testing
