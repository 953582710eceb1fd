#include "gui/windowsystem/wayland/WaylandWindowSystem.h"

namespace tidewell {

WaylandWindowSystem::WaylandWindowSystem(NotificationCenter& localCenter)
    : screens_(localCenter), pointer_(screens_),
      triggers_([this](QWindow& window) { watch(window); }) {
    watch(window_.view());
}

void WaylandWindowSystem::watch(QWindow& window) {
    pointer_.watch(window);
    dragPasteboard_.watch(window);
}

void WaylandWindowSystem::setPanelOutline(const QRectF& rect, double topRadius,
                                          double bottomRadius) {
    window_.setOutline(rect, topRadius, bottomRadius);
}

void WaylandWindowSystem::startPointerReports(PointerHandler handler) {
    pointer_.setHandler(std::move(handler));
}

void WaylandWindowSystem::stopPointerReports() {
    pointer_.setHandler({});
}

void WaylandWindowSystem::setPointerInterest(const PointerInterest& interest) {
    triggers_.setInterest(interest);
}

} // namespace tidewell
