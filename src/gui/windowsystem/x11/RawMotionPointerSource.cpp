#include "gui/windowsystem/x11/RawMotionPointerSource.h"

#include "core/shelf/PointerInterest.h"
#include "gui/windowsystem/QtScreens.h"

namespace tidewell {

RawMotionPointerSource::RawMotionPointerSource()
    : monitor_([this](int x, int y, unsigned) { handler_(corePointFromRoot(x, y)); }) {}

void RawMotionPointerSource::start(WindowSystem::PointerHandler handler) {
    handler_ = std::move(handler);
    monitor_.start();
}

// Moves elsewhere stay on the monitor's thread.
void RawMotionPointerSource::setInterest(const PointerInterest& interest) {
    PointerEventMonitor::Interest rootInterest{.everywhere = interest.everywhere, .regions = {}};
    for (const Rect& region : interest.regions)
        rootInterest.regions.push_back(rootRectFromCore(region));
    monitor_.setInterest(std::move(rootInterest));
}

} // namespace tidewell
