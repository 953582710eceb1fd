#pragma once

#include "gui/windowsystem/QtScreens.h"
#include "gui/windowsystem/WindowSystem.h"
#include "gui/windowsystem/x11/PointerEventMonitor.h"
#include "gui/windowsystem/x11/X11DragPasteboard.h"
#include "gui/windowsystem/x11/X11PanelWindow.h"
#include "gui/windowsystem/x11/X11Pointer.h"

namespace tidewell {

class NotificationCenter;

// X11: an override-redirect panel cut to the shelf's outline, and the pointer followed
// everywhere on the screen through raw XInput 2 events on a thread of their own.
class X11WindowSystem : public WindowSystem {
public:
    explicit X11WindowSystem(NotificationCenter& localCenter);

    PanelWindow& panel() override { return window_; }
    QQuickView& panelView() override { return window_.view(); }
    void setPanelOutline(const QRectF& rect, double topRadius, double bottomRadius) override;
    bool canHideFromSharing() const override { return X11PanelWindow::canHideFromSharing; }
    Displays& displays() override { return screens_; }
    Pointer& pointer() override { return pointer_; }
    DragPasteboard& dragPasteboard() override { return dragPasteboard_; }
    void startPointerReports(PointerHandler handler) override;
    void stopPointerReports() override { monitor_.stop(); }
    void setPointerInterest(const PointerInterest& interest) override;

private:
    QtScreens screens_;
    X11Pointer pointer_;
    X11DragPasteboard dragPasteboard_;
    X11PanelWindow window_;
    PointerHandler handler_;
    // Last, so that it stops reporting before anything it reports about goes.
    PointerEventMonitor monitor_;
};

} // namespace tidewell
