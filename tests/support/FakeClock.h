#pragma once

#include "core/platform/Clock.h"

namespace tidewell::testing {

// A clock that only moves when a test moves it. Starts at 2025-03-04T18:07:41Z.
class FakeClock : public Clock {
public:
    Date now() const override { return now_; }
    void advance(std::chrono::nanoseconds by) {
        now_ += std::chrono::duration_cast<Date::duration>(by);
    }

private:
    Date now_ = Date(std::chrono::seconds(1741111661));
};

} // namespace tidewell::testing
