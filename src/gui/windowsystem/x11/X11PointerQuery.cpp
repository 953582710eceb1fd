#include "gui/windowsystem/x11/X11PointerQuery.h"

#include <X11/Xlib.h>

namespace tidewell {

X11PointerState queryPointer(Display* display) {
    X11PointerState state;
    Window root = None;
    Window child = None;
    int windowX = 0;
    int windowY = 0;
    XQueryPointer(display, DefaultRootWindow(display), &root, &child, &state.rootX, &state.rootY,
                  &windowX, &windowY, &state.buttonMask);
    state.childWindow = child;
    return state;
}

} // namespace tidewell
