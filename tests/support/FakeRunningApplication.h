#pragma once

#include "core/platform/RunningApplication.h"

namespace tidewell::testing {

class FakeRunningApplication : public RunningApplication {
public:
    void terminate() override { ++terminateCount; }

    int terminateCount = 0;
};

} // namespace tidewell::testing
