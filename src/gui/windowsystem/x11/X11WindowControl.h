#pragma once

#include <QRegion>

struct _XDisplay;

namespace tidewell {

// What the panel asks of the X server and the window manager that Qt has no words for, on
// Qt's own connection. Every request is sent at once: Qt does not flush its connection from
// timer callbacks, and a shape that waits in the buffer leaves the old one clickable.
class X11WindowControl {
public:
    // Does nothing off X11.
    explicit X11WindowControl(unsigned long window);

    // Asks for the window on every workspace and out of taskbars and pagers. The window
    // manager reads both properties when the window is mapped and forgets them when it is
    // unmapped, so this comes before every mapping.
    void prepareForMapping();
    // The same for a mapped window, through the window manager.
    void requestAllWorkspaces();
    // Pointer events reach the window inside the region (device pixels) and pass through
    // to the windows below elsewhere.
    void setInputShape(const QRegion& region);
    // Whether a compositing manager draws the screen, which then honours the window's alpha.
    bool hasCompositor() const;
    void flush();

private:
    unsigned long atom(const char* name) const;

    _XDisplay* display_ = nullptr;
    unsigned long window_;
};

} // namespace tidewell
