#include "gui/windowsystem/x11/X11PanelWindow.h"

#include "gui/windowsystem/PanelOutline.h"
#include "gui/windowsystem/PanelView.h"

namespace tidewell {
namespace {

// Creates the native window, on a virtual X server drawn through Mesa's llvmpipe with GLX
// and an 8-bit alpha channel, and returns its id.
WId createPanelWindow(QQuickView& view, bool bypassesWindowManager) {
    setUpPanelView(view);
    if (bypassesWindowManager)
        view.setFlag(Qt::BypassWindowManagerHint);
    // Mapped with a user time of 0, which tells the window manager not to focus it.
    view.setProperty("_q_showWithoutActivating", true);
    return view.winId();
}

} // namespace

X11PanelWindow::X11PanelWindow(bool bypassesWindowManager)
    : x11_(createPanelWindow(view_, bypassesWindowManager)) {
    applyShape();
    // Both shapes are kept in device pixels: on a screen of another ratio they are cut anew.
    connect(&view_, &QWindow::screenChanged, this, &X11PanelWindow::applyShape);
}

X11PanelWindow::~X11PanelWindow() = default;

Rect X11PanelWindow::frame() const {
    return frame_;
}

void X11PanelWindow::setFrame(const Rect& frame) {
    frame_ = frame;
    view_.setGeometry(panelWindowRect(frame));
    x11_.flush();
}

void X11PanelWindow::setAlpha(double alpha) {
    view_.setOpacity(alpha);
    x11_.flush();
}

void X11PanelWindow::orderFrontWithoutActivating() {
    if (!view_.isVisible()) {
        x11_.prepareForMapping();
        view_.show();
    }
    view_.raise();
    x11_.requestAllWorkspaces();
    x11_.flush();
}

void X11PanelWindow::orderOut() {
    view_.hide();
    x11_.flush();
}

bool X11PanelWindow::isVisible() const {
    return view_.isVisible();
}

void X11PanelWindow::setSharingHidden(bool hidden) {
    isSharingHidden_ = hidden;
}

void X11PanelWindow::setOutline(const QRectF& rect, qreal topRadius, qreal bottomRadius) {
    outline_ = outlinePath(rect, topRadius, bottomRadius);
    applyShape();
}

void X11PanelWindow::applyShape() {
    x11_.setInputShape(regionOf(outline_, view_.devicePixelRatio()));
    // Without a compositor the transparent parts would show black: the outline cuts the
    // window itself. A compositor blends the alpha and draws the shadow beyond the outline.
    // Qt takes an empty mask for none, so a window without an outline yet, which would show
    // all black when mapped, is cut to a pixel outside itself.
    if (x11_.hasCompositor())
        view_.setMask(QRegion());
    else
        view_.setMask(outline_.isEmpty() ? QRegion(-1, -1, 1, 1) : regionOf(outline_, 1));
    x11_.flush();
}

} // namespace tidewell
