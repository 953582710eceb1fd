#include "gui/X11WindowInspector.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/shape.h>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace tidewell::testing {
namespace {

std::vector<unsigned long> readProperty(Display* display, Window window, Atom property, Atom type) {
    Atom actualType = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long remaining = 0;
    unsigned char* data = nullptr;
    std::vector<unsigned long> values;
    if (XGetWindowProperty(display, window, property, 0, 1024, False, type, &actualType, &format,
                           &count, &remaining, &data) == Success &&
        actualType == type && format == 32) {
        // Xlib hands 32-bit items over as sign-extended longs.
        const auto* items = reinterpret_cast<const long*>(data);
        for (unsigned long i = 0; i < count; ++i)
            values.push_back(static_cast<std::uint32_t>(items[i]));
    }
    if (data)
        XFree(data);
    return values;
}

} // namespace

X11WindowInspector::X11WindowInspector() : display_(XOpenDisplay(nullptr)) {
    if (!display_)
        throw std::runtime_error("cannot open the X display");
}

X11WindowInspector::~X11WindowInspector() {
    XCloseDisplay(display_);
}

std::optional<unsigned long> X11WindowInspector::cardinal(unsigned long window,
                                                          const char* property) {
    const auto values = readProperty(display_, window, atom(property), XA_CARDINAL);
    if (values.empty())
        return std::nullopt;
    return values.front();
}

bool X11WindowInspector::hasState(unsigned long window, const char* state) {
    for (const unsigned long value : readProperty(display_, window, atom("_NET_WM_STATE"), XA_ATOM))
        if (value == atom(state))
            return true;
    return false;
}

bool X11WindowInspector::acceptsInput(unsigned long window) {
    XWMHints* hints = XGetWMHints(display_, window);
    const bool accepts = !hints || !(hints->flags & InputHint) || hints->input;
    if (hints)
        XFree(hints);
    return accepts;
}

bool X11WindowInspector::isViewable(unsigned long window) {
    XWindowAttributes attributes{};
    return XGetWindowAttributes(display_, window, &attributes) &&
           attributes.map_state == IsViewable;
}

QRect X11WindowInspector::rootGeometry(unsigned long window) {
    XWindowAttributes attributes{};
    XGetWindowAttributes(display_, window, &attributes);
    int x = 0;
    int y = 0;
    Window child = None;
    XTranslateCoordinates(display_, window, DefaultRootWindow(display_), 0, 0, &x, &y, &child);
    return {x, y, attributes.width, attributes.height};
}

QRegion X11WindowInspector::inputShape(unsigned long window) {
    int count = 0;
    int ordering = 0;
    XRectangle* rectangles = XShapeGetRectangles(display_, window, ShapeInput, &count, &ordering);
    QRegion region;
    for (int i = 0; i < count; ++i)
        region +=
            QRect(rectangles[i].x, rectangles[i].y, rectangles[i].width, rectangles[i].height);
    if (rectangles)
        XFree(rectangles);
    return region;
}

bool X11WindowInspector::hasBoundingShape(unsigned long window) {
    Bool boundingShaped = False;
    Bool clipShaped = False;
    int x = 0, y = 0, clipX = 0, clipY = 0;
    unsigned width = 0, height = 0, clipWidth = 0, clipHeight = 0;
    XShapeQueryExtents(display_, window, &boundingShaped, &x, &y, &width, &height, &clipShaped,
                       &clipX, &clipY, &clipWidth, &clipHeight);
    return boundingShaped;
}

bool X11WindowInspector::hasCompositor() {
    return XGetSelectionOwner(display_, atom("_NET_WM_CM_S0")) != None;
}

unsigned long X11WindowInspector::createWindow() {
    const Window window = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 200, 300, 400,
                                              300, 0, 0, 0xFFFFFF);
    XMapWindow(display_, window);
    XSync(display_, False);
    return window;
}

void X11WindowInspector::activate(unsigned long window) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = atom("_NET_ACTIVE_WINDOW");
    event.xclient.format = 32;
    event.xclient.data.l[0] = 2; // from a pager: honoured without question
    XSendEvent(display_, DefaultRootWindow(display_), False,
               SubstructureRedirectMask | SubstructureNotifyMask, &event);
    XSync(display_, False);
}

unsigned long X11WindowInspector::focusedWindow() {
    Window focus = None;
    int revert = 0;
    XGetInputFocus(display_, &focus, &revert);
    return focus;
}

unsigned long X11WindowInspector::activeWindow() {
    const auto values =
        readProperty(display_, DefaultRootWindow(display_), atom("_NET_ACTIVE_WINDOW"), XA_WINDOW);
    return values.empty() ? None : values.front();
}

unsigned long X11WindowInspector::atom(const char* name) {
    return XInternAtom(display_, name, False);
}

} // namespace tidewell::testing
