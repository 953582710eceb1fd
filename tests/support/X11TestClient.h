#pragma once

#include "support/VirtualDisplay.h"

#include <chrono>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

struct _XDisplay;

namespace tidewell::testing {

struct WindowRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool contains(int pointX, int pointY) const {
        return pointX >= x && pointX < x + width && pointY >= y && pointY < y + height;
    }
    bool operator==(const WindowRect&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const WindowRect& rect);

// A shape as the X server keeps it: rectangles.
using WindowRegion = std::vector<WindowRect>;
bool contains(const WindowRegion& region, int x, int y);

// Another X client on the current display: it owns windows and selections and moves the
// pointer, presses buttons and types through XTest, as a user would. It also looks at windows
// as the window manager and other clients see them.
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
    // Warps are invisible to raw input: warp beside the point, then move onto it.
    void movePointerTo(int x, int y);
    void movePointerBy(int dx, int dy);
    void setPrimaryButton(bool pressed);
    // Moves in a straight line to the point as a hand drags: in small relative steps (raw
    // motion, as the shelf's pointer monitor hears it) with pauses that let the drag-and-drop
    // exchanges of the source and the target keep up.
    void dragTo(int x, int y);
    // Presses and releases the button (1 primary, 3 secondary).
    void click(unsigned button);
    // Presses and releases the keys as xdotool names them: "Down", "ctrl+a".
    void typeKey(const std::string& keys);
    void typeText(const std::string& text);
    // Makes the window the owner of the drag-and-drop selection, offering these types.
    void offerDrag(unsigned long window, const std::vector<std::string>& types);
    // Whether a button press reached one of the client's windows within the timeout.
    bool waitForButtonPress(unsigned long window, std::chrono::milliseconds timeout);

    // The property's value as xprop prints it ("4294967295", "_NET_WM_STATE_ABOVE, ..."); empty
    // when the window has none.
    std::string property(unsigned long window, const std::string& name);
    bool isViewable(unsigned long window);
    // Where the window lies on the root window, whoever its parent is.
    WindowRect rootGeometry(unsigned long window);
    WindowRegion inputShape(unsigned long window);
    // What of the window shows; the whole window when it has no shape.
    WindowRegion boundingShape(unsigned long window);
    bool hasCompositor();
    // The client window with this title (WM_NAME), mapped or not, wherever
    // the window manager has put it.
    std::optional<unsigned long> findWindow(const std::string& title);
    // The viewable override-redirect windows directly below the root: menus and the like.
    std::vector<unsigned long> viewableOverrideRedirectWindows();
    // The colour (0xRRGGBB) shown at this point of the screen.
    unsigned long screenPixel(int x, int y);
    // The colours shown in the rectangle of the screen, row by row.
    std::vector<unsigned long> screenArea(const WindowRect& area);

    // A normal top-level window, placed by the window manager.
    unsigned long createManagedWindow();
    // Asks the window manager to activate and focus the mapped window.
    void activate(unsigned long window);
    unsigned long focusedWindow();
    unsigned long activeWindow();

private:
    // Runs the X client on the display to its end; what it printed.
    std::string runOnDisplay(const std::vector<std::string>& arguments);
    std::pair<int, int> pointerPosition();
    WindowRegion shape(unsigned long window, int kind);

    _XDisplay* display_;
};

} // namespace tidewell::testing
