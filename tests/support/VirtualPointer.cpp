#include "support/VirtualPointer.h"

#include <chrono>
#include <cmath>
#include <stdexcept>
#include <thread>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

std::string buttonName(VirtualPointer::Button button) {
    return button == VirtualPointer::Button::left ? "left" : "right";
}

int count(const std::string& text, const std::string& word) {
    int found = 0;
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
        ++found;
    return found;
}

// Waits until the client has written the word that many times.
void waitForWord(const ChildProcess& client, const std::string& word, int times) {
    const auto deadline = std::chrono::steady_clock::now() + 10s;
    while (count(client.standardOutput(), word) < times) {
        if (std::chrono::steady_clock::now() > deadline)
            throw std::runtime_error("the virtual pointer did not answer: " +
                                     client.standardOutput() + client.standardError());
        std::this_thread::sleep_for(2ms);
    }
}

} // namespace

VirtualPointer::VirtualPointer(const std::string& program,
                               const std::map<std::string, std::string>& environment,
                               int layoutWidth, int layoutHeight)
    : client_({.arguments = {program, std::to_string(layoutWidth), std::to_string(layoutHeight)},
               .workingDirectory = "/",
               .environment = environment,
               .takesInput = true}) {
    waitForWord(client_, "ready\n", 1);
}

void VirtualPointer::send(const std::string& command) {
    client_.writeInput(command + "\n");
    waitForWord(client_, "ok\n", ++answers_);
}

void VirtualPointer::moveTo(int x, int y) {
    send("move " + std::to_string(x) + " " + std::to_string(y));
    x_ = x;
    y_ = y;
}

void VirtualPointer::press(Button button) {
    send("press " + buttonName(button));
}

void VirtualPointer::release(Button button) {
    send("release " + buttonName(button));
}

void VirtualPointer::click(Button button) {
    press(button);
    release(button);
}

// Steps of 8 pixels at most, each left to the programs for a moment: a drag's exchanges
// between source, compositor and target run at their own pace.
void VirtualPointer::dragTo(int x, int y) {
    const int fromX = x_;
    const int fromY = y_;
    const int steps = std::max(1, static_cast<int>(std::hypot(x - fromX, y - fromY) / 8));
    for (int step = 1; step <= steps; ++step) {
        moveTo(fromX + (x - fromX) * step / steps, fromY + (y - fromY) * step / steps);
        std::this_thread::sleep_for(5ms);
    }
}

} // namespace tidewell::testing
