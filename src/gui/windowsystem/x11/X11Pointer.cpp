#include "gui/windowsystem/x11/X11Pointer.h"

#include "gui/windowsystem/QtScreens.h"
#include "gui/windowsystem/x11/X11PointerQuery.h"

#include <X11/Xlib.h>

namespace tidewell {

X11Pointer::X11Pointer() : display_(XOpenDisplay(nullptr)) {}

X11Pointer::~X11Pointer() {
    if (display_)
        XCloseDisplay(display_);
}

Point X11Pointer::location() const {
    if (!display_)
        return {};
    const X11PointerState state = queryPointer(display_);
    return corePointFromRoot(state.rootX, state.rootY);
}

unsigned X11Pointer::pressedButtons() const {
    if (!display_)
        return 0;
    // Bit 0 is the primary button, bit 1 the secondary (X's button 3), bit 2 the middle one.
    // X's buttons 4 and 5 are wheel steps, never held.
    const unsigned mask = queryPointer(display_).buttonMask;
    return ((mask & Button1Mask) ? primaryButton : 0u) | ((mask & Button3Mask) ? 2u : 0u) |
           ((mask & Button2Mask) ? 4u : 0u);
}

} // namespace tidewell
