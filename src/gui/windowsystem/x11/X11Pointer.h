#pragma once

#include "core/platform/Pointer.h"

struct _XDisplay;

namespace tidewell {

// The pointer as the X server knows it now, asked over a connection of its own so that the
// question never waits behind the interface's drawing. Without an X display the pointer
// rests at the origin with no button held.
class X11Pointer : public Pointer {
public:
    X11Pointer();
    ~X11Pointer() override;
    X11Pointer(const X11Pointer&) = delete;
    X11Pointer& operator=(const X11Pointer&) = delete;

    Point location() const override;
    unsigned pressedButtons() const override;

private:
    _XDisplay* display_;
};

} // namespace tidewell
