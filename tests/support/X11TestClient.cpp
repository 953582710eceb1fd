#include "support/X11TestClient.h"

#include "support/ChildProcess.h"
#include "support/WaitUntil.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/shape.h>
#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <thread>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

// Windows come and go while the inspector looks at them; Xlib's default handler would end the
// test program on the first such race.
int ignoreError(Display*, XErrorEvent*) {
    return 0;
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const WindowRect& rect) {
    return stream << rect.width << "x" << rect.height << "+" << rect.x << "+" << rect.y;
}

bool contains(const WindowRegion& region, int x, int y) {
    return std::ranges::any_of(region, [&](const WindowRect& rect) { return rect.contains(x, y); });
}

X11TestClient::X11TestClient() : display_(XOpenDisplay(nullptr)) {
    if (!display_)
        throw std::runtime_error("cannot open the X display");
    XSetErrorHandler(ignoreError);
}

X11TestClient::~X11TestClient() {
    XCloseDisplay(display_);
}

unsigned long X11TestClient::createWindow(int x, int y, int width, int height) {
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True; // placed exactly where asked, without the manager
    attributes.event_mask = ButtonPressMask;
    const Window window =
        XCreateWindow(display_, DefaultRootWindow(display_), x, y, width, height, 0, CopyFromParent,
                      InputOutput, CopyFromParent, CWOverrideRedirect | CWEventMask, &attributes);
    XMapRaised(display_, window);
    XSync(display_, False);
    return window;
}

unsigned long X11TestClient::createDesktop(unsigned long colour) {
    const Window window = createWindow(0, 0, DisplayWidth(display_, DefaultScreen(display_)),
                                       DisplayHeight(display_, DefaultScreen(display_)));
    XSetWindowBackground(display_, window, colour);
    XClearWindow(display_, window);
    XLowerWindow(display_, window);
    XSync(display_, False);
    return window;
}

std::pair<int, int> X11TestClient::pointerPosition() {
    Window root = None, child = None;
    int x = 0, y = 0, windowX = 0, windowY = 0;
    unsigned mask = 0;
    XQueryPointer(display_, DefaultRootWindow(display_), &root, &child, &x, &y, &windowX, &windowY,
                  &mask);
    return {x, y};
}

void X11TestClient::movePointerTo(int x, int y) {
    XWarpPointer(display_, None, DefaultRootWindow(display_), 0, 0, 0, 0, x - 1, y);
    movePointerBy(1, 0);
}

void X11TestClient::movePointerBy(int dx, int dy) {
    XTestFakeRelativeMotionEvent(display_, dx, dy, CurrentTime);
    XSync(display_, False);
}

void X11TestClient::setPrimaryButton(bool pressed) {
    XTestFakeButtonEvent(display_, 1, pressed ? True : False, CurrentTime);
    XSync(display_, False);
}

// About 800 pixels a second, a brisk hand, each step aimed from where the pointer is. Qt's
// drag source passes on no move while the target has not answered its last position, and sends
// none when the answer comes: the last step waits for that answer, and the target gets time to
// take the last position in. An answer took up to 150 ms on a machine loaded three times over.
void X11TestClient::dragTo(int x, int y) {
    const auto [fromX, fromY] = pointerPosition();
    const int steps = std::max(1, (std::max(std::abs(x - fromX), std::abs(y - fromY)) + 3) / 4);
    for (int step = 1; step <= steps; ++step) {
        std::this_thread::sleep_for(step == steps ? 200ms : 5ms);
        const auto [atX, atY] = pointerPosition();
        movePointerBy(fromX + (x - fromX) * step / steps - atX,
                      fromY + (y - fromY) * step / steps - atY);
    }
    std::this_thread::sleep_for(200ms);
}

void X11TestClient::click(unsigned button) {
    XTestFakeButtonEvent(display_, button, True, CurrentTime);
    XTestFakeButtonEvent(display_, button, False, CurrentTime);
    XSync(display_, False);
}

void X11TestClient::typeKey(const std::string& keys) {
    runOnDisplay({"xdotool", "key", keys});
}

void X11TestClient::typeText(const std::string& text) {
    runOnDisplay({"xdotool", "type", text});
}

void X11TestClient::offerDrag(unsigned long window, const std::vector<std::string>& types) {
    std::vector<Atom> atoms;
    for (const std::string& type : types)
        atoms.push_back(XInternAtom(display_, type.c_str(), False));
    XChangeProperty(display_, window, XInternAtom(display_, "XdndTypeList", False), XA_ATOM, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(atoms.data()),
                    static_cast<int>(atoms.size()));
    XSetSelectionOwner(display_, XInternAtom(display_, "XdndSelection", False), window,
                       CurrentTime);
    XSync(display_, False);
}

bool X11TestClient::waitForButtonPress(unsigned long window, std::chrono::milliseconds timeout) {
    XEvent event{};
    return waitUntil(
        [&] {
            XSync(display_, False);
            return XCheckTypedWindowEvent(display_, window, ButtonPress, &event);
        },
        timeout);
}

std::string X11TestClient::runOnDisplay(const std::vector<std::string>& arguments) {
    return ChildProcess::run({.arguments = arguments,
                              .workingDirectory = "/",
                              .environment = {{"DISPLAY", DisplayString(display_)}}})
        .standardOutput;
}

std::string X11TestClient::property(unsigned long window, const std::string& name) {
    const std::string line =
        runOnDisplay({"xprop", "-id", std::to_string(window), "-notype", name});
    // "NAME = value", "NAME: window id # value" or "NAME:  not found."
    const auto at = line.find_first_of("=#");
    return at == std::string::npos ? "" : line.substr(at + 2, line.size() - at - 3);
}

bool X11TestClient::isViewable(unsigned long window) {
    XWindowAttributes attributes{};
    return XGetWindowAttributes(display_, window, &attributes) &&
           attributes.map_state == IsViewable;
}

WindowRect X11TestClient::rootGeometry(unsigned long window) {
    XWindowAttributes attributes{};
    XGetWindowAttributes(display_, window, &attributes);
    int x = 0;
    int y = 0;
    Window child = None;
    XTranslateCoordinates(display_, window, DefaultRootWindow(display_), 0, 0, &x, &y, &child);
    return {x, y, attributes.width, attributes.height};
}

WindowRegion X11TestClient::inputShape(unsigned long window) {
    return shape(window, ShapeInput);
}

WindowRegion X11TestClient::boundingShape(unsigned long window) {
    return shape(window, ShapeBounding);
}

WindowRegion X11TestClient::shape(unsigned long window, int kind) {
    int count = 0;
    int ordering = 0;
    XRectangle* rectangles = XShapeGetRectangles(display_, window, kind, &count, &ordering);
    WindowRegion region;
    for (int i = 0; i < count; ++i)
        region.push_back(
            {rectangles[i].x, rectangles[i].y, rectangles[i].width, rectangles[i].height});
    if (rectangles)
        XFree(rectangles);
    return region;
}

bool X11TestClient::hasCompositor() {
    return XGetSelectionOwner(display_, XInternAtom(display_, "_NET_WM_CM_S0", False)) != None;
}

std::optional<unsigned long> X11TestClient::findWindow(const std::string& title) {
    const std::string found = runOnDisplay({"xdotool", "search", "--name", "^" + title + "$"});
    return found.empty() ? std::nullopt : std::optional(std::stoul(found));
}

std::vector<unsigned long> X11TestClient::viewableOverrideRedirectWindows() {
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned count = 0;
    XQueryTree(display_, DefaultRootWindow(display_), &root, &parent, &children, &count);
    std::vector<unsigned long> windows;
    for (const Window child : std::vector<Window>(children, children + count)) {
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(display_, child, &attributes) && attributes.override_redirect &&
            attributes.map_state == IsViewable)
            windows.push_back(child);
    }
    if (children)
        XFree(children);
    return windows;
}

unsigned long X11TestClient::screenPixel(int x, int y) {
    return screenArea({x, y, 1, 1}).front();
}

std::vector<unsigned long> X11TestClient::screenArea(const WindowRect& area) {
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

unsigned long X11TestClient::createManagedWindow() {
    const Window window = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 200, 300, 400,
                                              300, 0, 0, 0xFFFFFF);
    XMapWindow(display_, window);
    XSync(display_, False);
    return window;
}

void X11TestClient::activate(unsigned long window) {
    runOnDisplay({"xdotool", "windowactivate", std::to_string(window)});
}

unsigned long X11TestClient::focusedWindow() {
    Window focus = None;
    int revert = 0;
    XGetInputFocus(display_, &focus, &revert);
    return focus;
}

unsigned long X11TestClient::activeWindow() {
    const std::string window = property(DefaultRootWindow(display_), "_NET_ACTIVE_WINDOW");
    return window.empty() ? None : std::stoul(window, nullptr, 16);
}

} // namespace tidewell::testing
