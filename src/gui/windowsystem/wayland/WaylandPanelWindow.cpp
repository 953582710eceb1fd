#include "gui/windowsystem/wayland/WaylandPanelWindow.h"

#include "gui/windowsystem/PanelOutline.h"
#include "gui/windowsystem/PanelView.h"
#include "gui/windowsystem/wayland/LayerSurfaceProperty.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QScreen>

namespace tidewell {

WaylandPanelWindow::WaylandPanelWindow() {
    setUpPanelView(view_);
    view_.setProperty(layerSurfaceProperty, QStringLiteral("overlay"));
    // Qt takes an empty mask for none: a pixel outside the window takes nothing instead.
    view_.setMask(QRegion(-1, -1, 1, 1));
}

void WaylandPanelWindow::setFrame(const Rect& frame) {
    frame_ = frame;
    const QRect geometry = panelWindowRect(frame);
    moveToScreenOf(geometry);
    view_.setGeometry(geometry);
}

void WaylandPanelWindow::moveToScreenOf(const QRect& geometry) {
    QScreen* screen = QGuiApplication::screenAt(geometry.center());
    if (!screen || screen == view_.screen())
        return;
    const bool wasVisible = view_.isVisible();
    view_.destroy();
    view_.setScreen(screen);
    if (wasVisible)
        view_.show();
}

void WaylandPanelWindow::setAlpha(double alpha) {
    view_.contentItem()->setOpacity(alpha);
}

double WaylandPanelWindow::alpha() const {
    return view_.contentItem()->opacity();
}

void WaylandPanelWindow::orderFrontWithoutActivating() {
    view_.show();
}

void WaylandPanelWindow::orderOut() {
    view_.hide();
}

void WaylandPanelWindow::setOutline(const QRectF& rect, qreal topRadius, qreal bottomRadius) {
    const QRegion region = regionOf(outlinePath(rect, topRadius, bottomRadius), 1);
    view_.setMask(region.isEmpty() ? QRegion(-1, -1, 1, 1) : region);
}

} // namespace tidewell
