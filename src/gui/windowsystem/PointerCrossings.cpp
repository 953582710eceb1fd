#include "gui/windowsystem/PointerCrossings.h"

#include "core/platform/Display.h"

#include <algorithm>

namespace tidewell {

PointerCrossings::PointerCrossings(const Displays& displays) : displays_(displays) {}

void PointerCrossings::setHandler(Handler handler) {
    handler_ = std::move(handler);
}

void PointerCrossings::moved(Point location) {
    report(location);
}

void PointerCrossings::left() {
    const std::vector<Display> displays = displays_.all();
    if (displays.empty())
        return;
    const auto left = std::ranges::find_if(displays, [this](const Display& display) {
        return location_ && display.frame.contains(*location_);
    });
    report((left != displays.end() ? *left : displays.front()).frame.origin);
}

void PointerCrossings::report(Point location) {
    location_ = location;
    if (handler_)
        handler_(location);
}

} // namespace tidewell
