#include "gui/windowsystem/x11/X11WindowControl.h"

#include <QGuiApplication>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/shape.h>
#include <string>
#include <vector>

namespace tidewell {
namespace {

constexpr unsigned long allWorkspaces = 0xFFFFFFFF;
constexpr long addState = 1;
constexpr long applicationSource = 1;

} // namespace

X11WindowControl::X11WindowControl(unsigned long window) : window_(window) {
    if (const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
        display_ = x11->display();
}

void X11WindowControl::prepareForMapping() {
    if (!display_)
        return;
    const unsigned long desktop = allWorkspaces;
    XChangeProperty(display_, window_, atom("_NET_WM_DESKTOP"), XA_CARDINAL, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(&desktop), 1);
    // Qt writes its own states (above the rest) through its own connection when it maps the
    // window; ours must reach the server first or they would replace Qt's.
    const Atom states[] = {atom("_NET_WM_STATE_SKIP_TASKBAR"), atom("_NET_WM_STATE_SKIP_PAGER"),
                           atom("_NET_WM_STATE_ABOVE")};
    XChangeProperty(display_, window_, atom("_NET_WM_STATE"), XA_ATOM, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(states), 3);
    XSync(display_, False);
}

void X11WindowControl::requestAllWorkspaces() {
    if (!display_)
        return;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window_;
    event.xclient.message_type = atom("_NET_WM_DESKTOP");
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(allWorkspaces);
    event.xclient.data.l[1] = applicationSource;
    XSendEvent(display_, DefaultRootWindow(display_), False,
               SubstructureRedirectMask | SubstructureNotifyMask, &event);
    event.xclient.message_type = atom("_NET_WM_STATE");
    event.xclient.data.l[0] = addState;
    event.xclient.data.l[1] = static_cast<long>(atom("_NET_WM_STATE_SKIP_TASKBAR"));
    event.xclient.data.l[2] = static_cast<long>(atom("_NET_WM_STATE_SKIP_PAGER"));
    event.xclient.data.l[3] = applicationSource;
    XSendEvent(display_, DefaultRootWindow(display_), False,
               SubstructureRedirectMask | SubstructureNotifyMask, &event);
}

void X11WindowControl::setInputShape(const QRegion& region) {
    if (!display_)
        return;
    std::vector<XRectangle> rectangles;
    for (const QRect& rect : region)
        rectangles.push_back({static_cast<short>(rect.x()), static_cast<short>(rect.y()),
                              static_cast<unsigned short>(rect.width()),
                              static_cast<unsigned short>(rect.height())});
    XShapeCombineRectangles(display_, window_, ShapeInput, 0, 0, rectangles.data(),
                            static_cast<int>(rectangles.size()), ShapeSet, YXBanded);
}

bool X11WindowControl::hasCompositor() const {
    if (!display_)
        return false;
    const std::string selection = "_NET_WM_CM_S" + std::to_string(DefaultScreen(display_));
    return XGetSelectionOwner(display_, atom(selection.c_str())) != None;
}

void X11WindowControl::flush() {
    // Through Xlib this also sends what Qt has queued on the shared connection.
    if (display_)
        XFlush(display_);
}

unsigned long X11WindowControl::atom(const char* name) const {
    return XInternAtom(display_, name, False);
}

} // namespace tidewell
