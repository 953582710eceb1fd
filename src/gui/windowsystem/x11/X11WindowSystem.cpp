#include "gui/windowsystem/x11/X11WindowSystem.h"

#include "core/shelf/PointerInterest.h"

namespace tidewell {

X11WindowSystem::X11WindowSystem(NotificationCenter& localCenter)
    : screens_(localCenter),
      monitor_([this](int x, int y, unsigned) { handler_(corePointFromRoot(x, y)); }) {}

void X11WindowSystem::setPanelOutline(const QRectF& rect, double topRadius, double bottomRadius) {
    window_.setOutline(rect, topRadius, bottomRadius);
}

void X11WindowSystem::startPointerReports(PointerHandler handler) {
    handler_ = std::move(handler);
    monitor_.start();
}

// Moves elsewhere stay on the monitor's thread.
void X11WindowSystem::setPointerInterest(const PointerInterest& interest) {
    PointerEventMonitor::Interest rootInterest{.everywhere = interest.everywhere, .regions = {}};
    for (const Rect& region : interest.regions)
        rootInterest.regions.push_back(rootRectFromCore(region));
    monitor_.setInterest(std::move(rootInterest));
}

} // namespace tidewell
