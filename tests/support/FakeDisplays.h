#pragma once

#include "core/platform/Display.h"

#include <vector>

namespace tidewell::testing {

// Reports whatever the test puts in `displays`, the main display first.
class FakeDisplays : public Displays {
public:
    std::vector<Display> all() const override { return displays; }

    std::vector<Display> displays;
};

} // namespace tidewell::testing
