#pragma once

#include "core/platform/Geometry.h"

#include <vector>

namespace tidewell {

// One connected display. `visibleFrame` excludes the menu bar or panels at its top. An
// empty auxiliary area means the display has no camera housing there.
struct Display {
    Rect frame;
    Rect visibleFrame;
    double safeAreaTop = 0;
    Rect auxiliaryTopLeftArea;
    Rect auxiliaryTopRightArea;
    double backingScale = 1;
    bool operator==(const Display&) const = default;
};

// The displays connected now; the first one is the main display.
class Displays {
public:
    virtual ~Displays() = default;
    virtual std::vector<Display> all() const = 0;
};

} // namespace tidewell
