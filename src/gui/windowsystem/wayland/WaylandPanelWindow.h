#pragma once

#include "core/platform/PanelWindow.h"

#include <QQuickView>
#include <QRegion>

namespace tidewell {

// The shelf's panel on Wayland: a Qt Quick view in a layer surface over everything on the
// output of the shelf's frame, which the compositor centres at the top edge; it never takes
// the keyboard. Moved to another output, the surface is made anew there, since a layer
// surface stays on the output it was made for. The input region is the outline the shelf
// draws: the pointer passes through everywhere else. Main thread only.
class WaylandPanelWindow : public PanelWindow {
public:
    WaylandPanelWindow();

    QQuickView& view() { return view_; }

    Rect frame() const override { return frame_; }
    void setFrame(const Rect& frame) override;
    // Applied to the drawing, since a Wayland client cannot fade its window.
    void setAlpha(double alpha) override;
    double alpha() const override;
    void orderFrontWithoutActivating() override;
    void orderOut() override;
    bool isVisible() const override { return view_.isVisible(); }
    // No Wayland protocol keeps a surface out of screen captures.
    void setSharingHidden(bool) override {}

    // The outline of the shelf as drawn now, in the view's logical pixels. Until the first
    // arrives nothing in the window takes the pointer.
    void setOutline(const QRectF& rect, qreal topRadius, qreal bottomRadius);

private:
    void moveToScreenOf(const QRect& geometry);

    QQuickView view_;
    Rect frame_;
};

} // namespace tidewell
