#pragma once

#include "gui/windowsystem/PointerSource.h"
#include "gui/windowsystem/QtScreens.h"
#include "gui/windowsystem/WindowSystem.h"
#include "gui/windowsystem/x11/X11DragPasteboard.h"
#include "gui/windowsystem/x11/X11PanelWindow.h"

#include <memory>

namespace tidewell {

class NotificationCenter;

// X11: an override-redirect panel cut to the shelf's outline, and the pointer followed as the
// tracking chosen allows.
class X11WindowSystem : public WindowSystem {
public:
    enum class Tracking {
        // Everywhere on the screen, through raw XInput 2 events.
        rawMotion,
        // Over trigger windows at the top edge and over the panel, which bypasses the window
        // manager: under XWayland raw events arrive only while the pointer is over an X window.
        triggerWindow,
    };

    X11WindowSystem(NotificationCenter& localCenter, Tracking tracking);

    PanelWindow& panel() override { return window_; }
    QQuickView& panelView() override { return window_.view(); }
    void setPanelOutline(const QRectF& rect, double topRadius, double bottomRadius) override;
    bool canHideFromSharing() const override { return X11PanelWindow::canHideFromSharing; }
    Displays& displays() override { return screens_; }
    Pointer& pointer() override { return source_->pointer(); }
    DragPasteboard& dragPasteboard() override { return dragPasteboard_; }
    void startPointerReports(PointerHandler handler) override;
    void stopPointerReports() override { source_->stop(); }
    void setPointerInterest(const PointerInterest& interest) override;

private:
    QtScreens screens_;
    X11DragPasteboard dragPasteboard_;
    X11PanelWindow window_;
    // Last, so that it stops reporting before anything it reports about goes.
    std::unique_ptr<PointerSource> source_;
};

} // namespace tidewell
