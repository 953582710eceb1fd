#pragma once

#include "support/VirtualDisplay.h"

#include <chrono>
#include <string>
#include <utility>
#include <vector>

struct _XDisplay;

namespace tidewell::testing {

// A virtual display inside the test desktop. The window manager finds its theme in the
// system's data folders, which the test desktop hides: they are shown again while the display
// exists.
class DesktopDisplay {
private:
    struct SystemFolders {
        SystemFolders();
        ScopedEnvironment environment;
    };

    SystemFolders folders_;
    VirtualDisplay display_;
};

// Another X client on the current display: it owns windows and selections and moves the
// pointer, presses buttons and types through XTest, as a user would.
class X11TestClient {
public:
    X11TestClient();
    ~X11TestClient();
    X11TestClient(const X11TestClient&) = delete;
    X11TestClient& operator=(const X11TestClient&) = delete;

    // A mapped top-level window above the others, that hears button presses; the client's
    // windows go away with it.
    unsigned long createWindow(int x, int y, int width, int height);
    // A window of one colour (0xRRGGBB) over the whole screen, below all others: the desktop
    // as the tests see it.
    unsigned long createDesktop(unsigned long colour);
    // The window the pointer is over, directly below the root.
    unsigned long windowUnderPointer();
    // Where the pointer is on the screen.
    std::pair<int, int> pointerPosition();
    // Warps are invisible to raw input: warp beside the point, then move onto it.
    void movePointerTo(int x, int y);
    void movePointerBy(int dx, int dy);
    void setPrimaryButton(bool pressed);
    // Presses and releases the button (1 primary, 3 secondary).
    void click(unsigned button);
    // Presses and releases the key of this keysym name ("Down", "Return"), holding the
    // modifier keys ("Control_L", "Shift_L") meanwhile.
    void typeKey(const std::string& keysymName, const std::vector<std::string>& modifiers = {});
    // Types the text key by key: letters, digits, spaces, full stops and hyphens.
    void typeText(const std::string& text);
    // Makes the window the owner of the drag-and-drop selection, offering these types.
    void offerDrag(unsigned long window, const std::vector<std::string>& types);
    // Whether a button press reached one of the client's windows within the timeout.
    bool waitForButtonPress(unsigned long window, std::chrono::milliseconds timeout);

private:
    _XDisplay* display_;
};

} // namespace tidewell::testing
