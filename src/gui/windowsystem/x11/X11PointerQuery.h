#pragma once

struct _XDisplay;

namespace tidewell {

// Where the pointer is on the root window, which buttons are held, and which top-level
// window it is over: one round trip to the X server.
struct X11PointerState {
    int rootX = 0;
    int rootY = 0;
    unsigned buttonMask = 0;
    unsigned long childWindow = 0; // None when over no window
};

X11PointerState queryPointer(_XDisplay* display);

} // namespace tidewell
