#pragma once

#include <chrono>
#include <functional>
#include <thread>

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

} // namespace tidewell::testing
