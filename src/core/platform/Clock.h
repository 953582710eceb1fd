#pragma once

#include <chrono>

namespace tidewell {

using Date = std::chrono::system_clock::time_point;

// Wall-clock time, injected so that tests run on a fake clock.
class Clock {
public:
    virtual ~Clock() = default;
    virtual Date now() const = 0;
};

} // namespace tidewell
