#include "support/X11WindowInspector.h"

#include "support/ChildProcess.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/shape.h>
#include <algorithm>
#include <stdexcept>
#include <vector>

namespace tidewell::testing {
namespace {

// The titles the tests look for are ASCII, the same in WM_NAME as in _NET_WM_NAME.
std::optional<std::string> windowTitle(Display* display, Window window) {
    char* name = nullptr;
    if (!XFetchName(display, window, &name) || !name)
        return std::nullopt;
    const std::string title = name;
    XFree(name);
    return title;
}

std::vector<Window> children(Display* display, Window window) {
    Window root = None;
    Window parent = None;
    Window* list = nullptr;
    unsigned count = 0;
    std::vector<Window> windows;
    if (XQueryTree(display, window, &root, &parent, &list, &count))
        windows.assign(list, list + count);
    if (list)
        XFree(list);
    return windows;
}

std::optional<Window> findBelow(Display* display, Window window, const std::string& title) {
    for (const Window child : children(display, window)) {
        if (windowTitle(display, child) == title)
            return child;
        if (const auto found = findBelow(display, child, title))
            return found;
    }
    return std::nullopt;
}

// Windows come and go while the inspector looks at them; Xlib's default handler would end the
// test program on the first such race.
int ignoreError(Display*, XErrorEvent*) {
    return 0;
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const WindowRect& rect) {
    return stream << rect.width << "x" << rect.height << "+" << rect.x << "+" << rect.y;
}

bool WindowRegion::contains(int x, int y) const {
    return std::any_of(rectangles.begin(), rectangles.end(),
                       [&](const WindowRect& rect) { return rect.contains(x, y); });
}

X11WindowInspector::X11WindowInspector() : display_(XOpenDisplay(nullptr)) {
    if (!display_)
        throw std::runtime_error("cannot open the X display");
    XSetErrorHandler(ignoreError);
}

X11WindowInspector::~X11WindowInspector() {
    XCloseDisplay(display_);
}

std::string X11WindowInspector::property(unsigned long window, const std::string& name) {
    const std::string line =
        ChildProcess::run({.arguments = {"xprop", "-id", std::to_string(window), "-notype", name},
                           .workingDirectory = "/",
                           .environment = {{"DISPLAY", DisplayString(display_)}}})
            .standardOutput;
    // "NAME = value", "NAME: window id # value" or "NAME:  not found."
    const auto at = line.find_first_of("=#");
    return at == std::string::npos ? "" : line.substr(at + 2, line.size() - at - 3);
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

WindowRect X11WindowInspector::rootGeometry(unsigned long window) {
    XWindowAttributes attributes{};
    XGetWindowAttributes(display_, window, &attributes);
    int x = 0;
    int y = 0;
    Window child = None;
    XTranslateCoordinates(display_, window, DefaultRootWindow(display_), 0, 0, &x, &y, &child);
    return {x, y, attributes.width, attributes.height};
}

WindowRegion X11WindowInspector::inputShape(unsigned long window) {
    return shape(window, ShapeInput);
}

WindowRegion X11WindowInspector::boundingShape(unsigned long window) {
    return shape(window, ShapeBounding);
}

WindowRegion X11WindowInspector::shape(unsigned long window, int kind) {
    int count = 0;
    int ordering = 0;
    XRectangle* rectangles = XShapeGetRectangles(display_, window, kind, &count, &ordering);
    WindowRegion region;
    for (int i = 0; i < count; ++i)
        region.rectangles.push_back(
            {rectangles[i].x, rectangles[i].y, rectangles[i].width, rectangles[i].height});
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
    return XGetSelectionOwner(display_, XInternAtom(display_, "_NET_WM_CM_S0", False)) != None;
}

std::optional<unsigned long> X11WindowInspector::findWindow(const std::string& title) {
    return findBelow(display_, DefaultRootWindow(display_), title);
}

std::vector<unsigned long> X11WindowInspector::viewableOverrideRedirectWindows() {
    std::vector<unsigned long> windows;
    for (const Window child : children(display_, DefaultRootWindow(display_))) {
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(display_, child, &attributes) && attributes.override_redirect &&
            attributes.map_state == IsViewable)
            windows.push_back(child);
    }
    return windows;
}

unsigned long X11WindowInspector::screenPixel(int x, int y) {
    return screenArea({x, y, 1, 1}).front();
}

std::vector<unsigned long> X11WindowInspector::screenArea(const WindowRect& area) {
    XImage* image = XGetImage(display_, DefaultRootWindow(display_), area.x, area.y,
                              static_cast<unsigned>(area.width), static_cast<unsigned>(area.height),
                              AllPlanes, ZPixmap);
    if (!image)
        throw std::runtime_error("cannot read the screen at " + std::to_string(area.x) + "," +
                                 std::to_string(area.y));
    std::vector<unsigned long> pixels;
    for (int y = 0; y < area.height; ++y)
        for (int x = 0; x < area.width; ++x)
            pixels.push_back(XGetPixel(image, x, y) & 0xFFFFFF);
    XDestroyImage(image);
    return pixels;
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
    event.xclient.message_type = XInternAtom(display_, "_NET_ACTIVE_WINDOW", False);
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
    const std::string window = property(DefaultRootWindow(display_), "_NET_ACTIVE_WINDOW");
    return window.empty() ? None : std::stoul(window, nullptr, 16);
}

} // namespace tidewell::testing
