#pragma once

#include <optional>
#include <ostream>
#include <string>
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
struct WindowRegion {
    std::vector<WindowRect> rectangles;

    bool isEmpty() const { return rectangles.empty(); }
    bool contains(int x, int y) const;
};

// Looks at windows on the current display as the window manager and other clients see them,
// over a connection of its own; also owns an ordinary, managed window of another client.
class X11WindowInspector {
public:
    X11WindowInspector();
    ~X11WindowInspector();
    X11WindowInspector(const X11WindowInspector&) = delete;
    X11WindowInspector& operator=(const X11WindowInspector&) = delete;

    // The property's value as xprop prints it ("4294967295", "_NET_WM_STATE_ABOVE, ..."); empty
    // when the window has none.
    std::string property(unsigned long window, const std::string& name);
    // WM_HINTS' input field; true when the window sets none.
    bool acceptsInput(unsigned long window);
    bool isViewable(unsigned long window);
    // Where the window lies on the root window, whoever its parent is.
    WindowRect rootGeometry(unsigned long window);
    WindowRegion inputShape(unsigned long window);
    // What of the window shows; the whole window when it has no shape.
    WindowRegion boundingShape(unsigned long window);
    bool hasBoundingShape(unsigned long window);
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
    unsigned long createWindow();
    // Asks the window manager to activate and focus the mapped window.
    void activate(unsigned long window);
    unsigned long focusedWindow();
    unsigned long activeWindow();

private:
    WindowRegion shape(unsigned long window, int kind);

    _XDisplay* display_;
};

} // namespace tidewell::testing
