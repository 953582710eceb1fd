#include "support/X11TestClient.h"

#include "support/WaitUntil.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
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

} // namespace

DesktopDisplay::SystemFolders::SystemFolders() {
    environment.set("XDG_CONFIG_DIRS", "/etc/xdg");
    environment.set("XDG_DATA_DIRS", "/usr/local/share:/usr/share");
}

X11TestClient::X11TestClient() : display_(XOpenDisplay(nullptr)) {
    if (!display_)
        throw std::runtime_error("cannot open the X display");
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

} // namespace tidewell::testing
