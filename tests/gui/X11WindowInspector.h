#pragma once

#include <QRect>
#include <QRegion>
#include <optional>
#include <string>

struct _XDisplay;

namespace tidewell::testing {

// Looks at windows on the current display as the window manager and other clients see them,
// over a connection of its own; also owns an ordinary, managed window of another client.
class X11WindowInspector {
public:
    X11WindowInspector();
    ~X11WindowInspector();
    X11WindowInspector(const X11WindowInspector&) = delete;
    X11WindowInspector& operator=(const X11WindowInspector&) = delete;

    std::optional<unsigned long> cardinal(unsigned long window, const char* property);
    bool hasState(unsigned long window, const char* state);
    // WM_HINTS' input field; true when the window sets none.
    bool acceptsInput(unsigned long window);
    bool isViewable(unsigned long window);
    // Where the window lies on the root window, whoever its parent is.
    QRect rootGeometry(unsigned long window);
    QRegion inputShape(unsigned long window);
    bool hasBoundingShape(unsigned long window);
    bool hasCompositor();

    // A normal top-level window, placed by the window manager.
    unsigned long createWindow();
    // Asks the window manager to activate and focus the mapped window.
    void activate(unsigned long window);
    unsigned long focusedWindow();
    unsigned long activeWindow();

private:
    unsigned long atom(const char* name);

    _XDisplay* display_;
};

} // namespace tidewell::testing
