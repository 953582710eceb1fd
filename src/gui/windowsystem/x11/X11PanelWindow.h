#pragma once

#include "core/platform/PanelWindow.h"
#include "gui/windowsystem/x11/X11WindowControl.h"

#include <QObject>
#include <QPainterPath>
#include <QQuickView>
#include <QRectF>

namespace tidewell {

// The shelf's panel: a frameless Qt Quick view above other windows, on every workspace, out
// of taskbars and pagers, that never takes focus. It reaches panelShadowMargin pixels beyond
// the shelf's frame left, right and below; pointer events pass through everywhere outside
// the outline that the shelf draws. Main thread only.
class X11PanelWindow : public QObject, public PanelWindow {
    Q_OBJECT
public:
    // X11 offers no way to keep a window out of screen captures.
    static constexpr bool canHideFromSharing = false;

    // Bypassing the window manager, the panel is placed exactly where asked: the window
    // managers of Wayland compositors place the windows of X clients as they see fit.
    explicit X11PanelWindow(bool bypassesWindowManager = false);
    ~X11PanelWindow() override;

    QQuickView& view() { return view_; }

    // The shelf's frame last set, in points from the primary display's bottom-left.
    Rect frame() const override;
    void setFrame(const Rect& frame) override;
    void setAlpha(double alpha) override;
    double alpha() const override { return view_.opacity(); }
    void orderFrontWithoutActivating() override;
    void orderOut() override;
    bool isVisible() const override;
    // Kept for when the system can honour it; see canHideFromSharing.
    void setSharingHidden(bool hidden) override;
    bool isSharingHidden() const { return isSharingHidden_; }

public slots:
    // The outline of the shelf as drawn now, in the view's logical pixels. Until the first
    // outline arrives nothing in the window takes the pointer or, without a compositor, shows.
    void setOutline(const QRectF& rect, qreal topRadius, qreal bottomRadius);

private:
    void applyShape();

    QQuickView view_;
    X11WindowControl x11_;
    Rect frame_;
    QPainterPath outline_;
    bool isSharingHidden_ = false;
};

} // namespace tidewell
