#include "support/X11TestClient.h"

#include "support/ChildProcess.h"
#include "support/WaitUntil.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/shape.h>
#include <algorithm>
#include <cctype>
#include <map>
#include <stdexcept>

namespace tidewell::testing {
namespace {

struct PointerState {
    int rootX = 0;
    int rootY = 0;
    Window child = None; // the top-level window under the pointer
};

PointerState queryPointer(Display* display) {
    PointerState state;
    Window root = None;
    int x = 0, y = 0;
    unsigned mask = 0;
    XQueryPointer(display, DefaultRootWindow(display), &root, &state.child, &state.rootX,
                  &state.rootY, &x, &y, &mask);
    return state;
}

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

DesktopDisplay::SystemFolders::SystemFolders() {
    environment.set("XDG_CONFIG_DIRS", "/etc/xdg");
    environment.set("XDG_DATA_DIRS", "/usr/local/share:/usr/share");
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

unsigned long X11TestClient::windowUnderPointer() {
    return queryPointer(display_).child;
}

std::pair<int, int> X11TestClient::pointerPosition() {
    const PointerState state = queryPointer(display_);
    return {state.rootX, state.rootY};
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

void X11TestClient::click(unsigned button) {
    XTestFakeButtonEvent(display_, button, True, CurrentTime);
    XTestFakeButtonEvent(display_, button, False, CurrentTime);
    XSync(display_, False);
}

void X11TestClient::typeKey(const std::string& keysymName,
                            const std::vector<std::string>& modifiers) {
    const auto keyCode = [this](const std::string& name) {
        const KeyCode key = XKeysymToKeycode(display_, XStringToKeysym(name.c_str()));
        if (key == 0)
            throw std::runtime_error("no key for " + name);
        return key;
    };
    for (const std::string& modifier : modifiers)
        XTestFakeKeyEvent(display_, keyCode(modifier), True, CurrentTime);
    const KeyCode key = keyCode(keysymName);
    XTestFakeKeyEvent(display_, key, True, CurrentTime);
    XTestFakeKeyEvent(display_, key, False, CurrentTime);
    for (auto modifier = modifiers.rbegin(); modifier != modifiers.rend(); ++modifier)
        XTestFakeKeyEvent(display_, keyCode(*modifier), False, CurrentTime);
    XSync(display_, False);
}

void X11TestClient::typeText(const std::string& text) {
    static const std::map<char, std::string> punctuation = {
        {' ', "space"}, {'.', "period"}, {'-', "minus"}};
    for (const char c : text) {
        const auto found = punctuation.find(c);
        if (found != punctuation.end())
            typeKey(found->second);
        else if (std::isupper(static_cast<unsigned char>(c)))
            typeKey(std::string(1, static_cast<char>(std::tolower(c))), {"Shift_L"});
        else
            typeKey(std::string(1, c));
    }
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

std::string X11TestClient::property(unsigned long window, const std::string& name) {
    const std::string line =
        ChildProcess::run({.arguments = {"xprop", "-id", std::to_string(window), "-notype", name},
                           .workingDirectory = "/",
                           .environment = {{"DISPLAY", DisplayString(display_)}}})
            .standardOutput;
    // "NAME = value", "NAME: window id # value" or "NAME:  not found."
    const auto at = line.find_first_of("=#");
    return at == std::string::npos ? "" : line.substr(at + 2, line.size() - at - 3);
}

bool X11TestClient::acceptsInput(unsigned long window) {
    XWMHints* hints = XGetWMHints(display_, window);
    const bool accepts = !hints || !(hints->flags & InputHint) || hints->input;
    if (hints)
        XFree(hints);
    return accepts;
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
        region.rectangles.push_back(
            {rectangles[i].x, rectangles[i].y, rectangles[i].width, rectangles[i].height});
    if (rectangles)
        XFree(rectangles);
    return region;
}

bool X11TestClient::hasBoundingShape(unsigned long window) {
    Bool boundingShaped = False;
    Bool clipShaped = False;
    int x = 0, y = 0, clipX = 0, clipY = 0;
    unsigned width = 0, height = 0, clipWidth = 0, clipHeight = 0;
    XShapeQueryExtents(display_, window, &boundingShaped, &x, &y, &width, &height, &clipShaped,
                       &clipX, &clipY, &clipWidth, &clipHeight);
    return boundingShaped;
}

bool X11TestClient::hasCompositor() {
    return XGetSelectionOwner(display_, XInternAtom(display_, "_NET_WM_CM_S0", False)) != None;
}

std::optional<unsigned long> X11TestClient::findWindow(const std::string& title) {
    return findBelow(display_, DefaultRootWindow(display_), title);
}

std::vector<unsigned long> X11TestClient::viewableOverrideRedirectWindows() {
    std::vector<unsigned long> windows;
    for (const Window child : children(display_, DefaultRootWindow(display_))) {
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(display_, child, &attributes) && attributes.override_redirect &&
            attributes.map_state == IsViewable)
            windows.push_back(child);
    }
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
