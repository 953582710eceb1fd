#pragma once

#include "gui/windowsystem/QtScreens.h"
#include "gui/windowsystem/WindowSystem.h"
#include "gui/windowsystem/wayland/WaylandDragPasteboard.h"
#include "gui/windowsystem/wayland/WaylandPanelWindow.h"
#include "gui/windowsystem/wayland/WaylandPointer.h"
#include "gui/windowsystem/wayland/WaylandTriggers.h"

namespace tidewell {

class NotificationCenter;

// Wayland with layer shell: the shelf in a layer surface, and the pointer seen only over the
// application's own surfaces, the open triggers among them (see prepareWaylandShell).
class WaylandWindowSystem : public WindowSystem {
public:
    explicit WaylandWindowSystem(NotificationCenter& localCenter);

    PanelWindow& panel() override { return window_; }
    QQuickView& panelView() override { return window_.view(); }
    void setPanelOutline(const QRectF& rect, double topRadius, double bottomRadius) override;
    bool canHideFromSharing() const override { return false; }
    Displays& displays() override { return screens_; }
    Pointer& pointer() override { return pointer_; }
    DragPasteboard& dragPasteboard() override { return dragPasteboard_; }
    void startPointerReports(PointerHandler handler) override;
    void stopPointerReports() override;
    void setPointerInterest(const PointerInterest& interest) override;

private:
    void watch(QWindow& window);

    QtScreens screens_;
    WaylandPointer pointer_;
    WaylandDragPasteboard dragPasteboard_;
    WaylandPanelWindow window_;
    WaylandTriggers triggers_;
};

} // namespace tidewell
