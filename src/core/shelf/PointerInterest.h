#pragma once

#include "core/platform/Geometry.h"

#include <vector>

namespace tidewell {

// Where a pointer move can change what the shelf does. Moves elsewhere need not reach the
// main thread, so a pointer monitor that runs on a thread of its own keeps a copy and drops
// them there.
struct PointerInterest {
    // Every move counts: the panel is on screen, or a close is armed.
    bool everywhere = true;
    // Otherwise moves count inside these, the open triggers, and anywhere while the primary
    // button is held, since dragging files widens the trigger.
    std::vector<Rect> regions;
    bool operator==(const PointerInterest&) const = default;
};

} // namespace tidewell
