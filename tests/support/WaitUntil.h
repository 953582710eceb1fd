#pragma once

#include <chrono>
#include <functional>
#include <thread>
#include <utility>

namespace tidewell::testing {

// Polls the condition until it holds or the timeout passes; returns the condition.
inline bool waitUntil(const std::function<bool()>& condition,
                      std::chrono::milliseconds timeout = std::chrono::seconds(5)) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
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
