#pragma once

#include <chrono>
#include <functional>
#include <thread>
#include <utility>

namespace tidewell::testing {

// Polls the condition until it holds or the timeout passes; returns the condition. Between
// two polls it pauses 10 ms, or does `betweenPolls` (a caller with an event loop runs it).
inline bool waitUntil(
    const std::function<bool()>& condition,
    std::chrono::milliseconds timeout = std::chrono::seconds(5),
    const std::function<void()>& betweenPolls = [] {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        betweenPolls();
    }
    return true;
}

// Waits until the colour (0xRRGGBB) is not black and the same twice, 100 ms apart: whatever
// fades in there has finished.
inline bool waitUntilSteady(const std::function<unsigned long()>& colour) {
    unsigned long previous = 0x000000;
    return waitUntil([&] {
        const unsigned long current = colour();
        const bool steady = current != 0x000000 && current == std::exchange(previous, current);
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        return steady;
    });
}

} // namespace tidewell::testing
