#include "gui/windowsystem/x11/X11WindowSystem.h"

#include "gui/windowsystem/x11/RawMotionPointerSource.h"
#include "gui/windowsystem/x11/TriggerWindowPointerSource.h"

namespace tidewell {
namespace {

std::unique_ptr<PointerSource> pointerSource(X11WindowSystem::Tracking tracking,
                                             const Displays& displays, X11PanelWindow& panel) {
    if (tracking == X11WindowSystem::Tracking::rawMotion)
        return std::make_unique<RawMotionPointerSource>();
    return std::make_unique<TriggerWindowPointerSource>(displays, panel.view().winId());
}

} // namespace

X11WindowSystem::X11WindowSystem(NotificationCenter& localCenter, Tracking tracking)
    : screens_(localCenter), window_(tracking == Tracking::triggerWindow),
      source_(pointerSource(tracking, screens_, window_)) {}

void X11WindowSystem::setPanelOutline(const QRectF& rect, double topRadius, double bottomRadius) {
    window_.setOutline(rect, topRadius, bottomRadius);
}

void X11WindowSystem::startPointerReports(PointerHandler handler) {
    source_->start(std::move(handler));
}

void X11WindowSystem::setPointerInterest(const PointerInterest& interest) {
    source_->setInterest(interest);
}

} // namespace tidewell
