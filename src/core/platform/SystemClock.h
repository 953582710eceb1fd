#pragma once

#include "core/platform/Clock.h"

namespace tidewell {

class SystemClock : public Clock {
public:
    Date now() const override { return std::chrono::system_clock::now(); }
};

} // namespace tidewell
