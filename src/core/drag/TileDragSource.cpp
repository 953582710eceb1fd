#include "core/drag/TileDragSource.h"

#include <cmath>

namespace tidewell {
namespace {

constexpr double dragThreshold = 3.0;
constexpr double windowReach = 60.0;

} // namespace

void TileDragSource::press(Point windowPoint) {
    mouseDownPoint_ = windowPoint;
    isDragging_ = false;
}

bool TileDragSource::drag(Point windowPoint) {
    if (isDragging_ || !mouseDownPoint_)
        return false;
    const double travel =
        std::hypot(windowPoint.x - mouseDownPoint_->x, windowPoint.y - mouseDownPoint_->y);
    if (travel <= dragThreshold)
        return false;
    isDragging_ = true;
    return true;
}

bool TileDragSource::release() {
    mouseDownPoint_.reset();
    return !isDragging_;
}

bool TileDragSource::isNearWindow(Point screenPoint, const std::optional<Rect>& windowFrame) {
    return windowFrame && windowFrame->grown(windowReach, windowReach).contains(screenPoint);
}

TileDragSource::SessionEnd TileDragSource::sessionEnded(bool accepted, Point screenPoint,
                                                        const std::optional<Rect>& windowFrame) {
    isDragging_ = false;
    if (accepted)
        return SessionEnd::accepted;
    return isNearWindow(screenPoint, windowFrame) ? SessionEnd::endedInside
                                                  : SessionEnd::droppedOutside;
}

} // namespace tidewell
