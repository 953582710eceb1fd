#include "gui/windowsystem/x11/X11TriggerWindows.h"

#include "gui/windowsystem/PointerCrossings.h"
#include "gui/windowsystem/QtScreens.h"

#include <X11/Xlib.h>
#include <algorithm>
#include <optional>

namespace tidewell {
namespace {

constexpr long crossingEvents = EnterWindowMask | LeaveWindowMask | PointerMotionMask;

// Input-only: nothing drawn, no compositing, and the pointer taken exactly inside it.
Window createTrigger(::Display* display) {
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    attributes.event_mask = crossingEvents;
    const Window window =
        XCreateWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, InputOnly,
                      CopyFromParent, CWOverrideRedirect | CWEventMask, &attributes);
    // What window lists and tests see.
    XStoreName(display, window, "Tidewell Trigger");
    return window;
}

} // namespace

X11TriggerWindows::X11TriggerWindows(PointerCrossings& crossings)
    : crossings_(crossings), display_(XOpenDisplay(nullptr)) {
    if (!display_)
        return;
    // Windows that others map or restack may cover the triggers.
    XSelectInput(display_, DefaultRootWindow(display_), SubstructureNotifyMask);
    XFlush(display_);
    notifier_ =
        std::make_unique<QSocketNotifier>(ConnectionNumber(display_), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { readEvents(); });
}

X11TriggerWindows::~X11TriggerWindows() {
    notifier_.reset();
    if (display_)
        XCloseDisplay(display_);
}

void X11TriggerWindows::watch(unsigned long window) {
    if (!display_)
        return;
    XSelectInput(display_, window, crossingEvents);
    XFlush(display_);
}

void X11TriggerWindows::setRegions(const std::vector<QRect>& regions) {
    if (!display_ || regions == regions_)
        return;
    regions_ = regions;
    for (; windows_.size() > regions.size(); windows_.pop_back())
        XDestroyWindow(display_, windows_.back());
    while (windows_.size() < regions.size())
        windows_.push_back(createTrigger(display_));
    for (std::size_t index = 0; index < regions.size(); ++index) {
        const QRect& region = regions[index];
        XMoveResizeWindow(display_, windows_[index], region.x(), region.y(),
                          static_cast<unsigned>(region.width()),
                          static_cast<unsigned>(region.height()));
        XMapRaised(display_, windows_[index]);
    }
    XFlush(display_);
}

// A leave followed by an enter in the same batch is a move from one of the windows to
// another; of the moves in a batch only the last counts.
void X11TriggerWindows::readEvents() {
    std::optional<Point> move;
    bool leaving = false;
    while (XPending(display_)) {
        XEvent event;
        XNextEvent(display_, &event);
        if (event.type == MotionNotify) {
            move = corePointFromRoot(event.xmotion.x_root, event.xmotion.y_root);
            leaving = false;
        } else if (event.type == EnterNotify) {
            move = corePointFromRoot(event.xcrossing.x_root, event.xcrossing.y_root);
            leaving = false;
        } else if (event.type == LeaveNotify) {
            leaving = true;
        } else {
            keepAbove(event);
        }
    }
    if (move)
        crossings_.moved(*move);
    if (leaving)
        crossings_.left();
}

void X11TriggerWindows::keepAbove(const XEvent& event) {
    if ((event.type == MapNotify && !isTrigger(event.xmap.window)) ||
        (event.type == ConfigureNotify && !isTrigger(event.xconfigure.window)))
        raise();
}

bool X11TriggerWindows::isTrigger(unsigned long window) const {
    return std::ranges::find(windows_, window) != windows_.end();
}

void X11TriggerWindows::raise() {
    for (const unsigned long window : windows_)
        XRaiseWindow(display_, window);
    XFlush(display_);
}

} // namespace tidewell
