#include "gui/platform/PointerEventMonitor.h"

#include "gui/platform/X11PointerQuery.h"

#include <QSocketNotifier>
#include <QTimer>
#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>

namespace tidewell {

namespace {
// A fast mouse moves a thousand times a second, but the shelf needs at most one position per
// frame of a 60 Hz display: after a report the connection rests this long, and the events that
// came meanwhile make one report. The first move after a rest is reported at once.
constexpr std::chrono::milliseconds reportInterval{16};
} // namespace

PointerEventMonitor::PointerEventMonitor(Handler handler) : handler_(std::move(handler)) {
    restTimer_.setSingleShot(true);
    restTimer_.setInterval(reportInterval);
    QObject::connect(&restTimer_, &QTimer::timeout, [this] {
        notifier_->setEnabled(true);
        serveConnection();
    });
}

PointerEventMonitor::~PointerEventMonitor() {
    stop();
}

bool PointerEventMonitor::start() {
    stop();
    display_ = XOpenDisplay(nullptr);
    if (!display_)
        return false;
    if (!selectRawEvents()) {
        stop();
        return false;
    }
    notifier_ =
        std::make_unique<QSocketNotifier>(ConnectionNumber(display_), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { serveConnection(); });
    return true;
}

void PointerEventMonitor::stop() {
    restTimer_.stop();
    notifier_.reset();
    if (display_)
        XCloseDisplay(display_);
    display_ = nullptr;
}

// Raw events reach the root window whatever window the pointer is over, during grabs too
// (XInput 2.1 and later); button events are included so that a press without motion counts.
bool PointerEventMonitor::selectRawEvents() {
    int event = 0;
    int error = 0;
    if (!XQueryExtension(display_, "XInputExtension", &inputOpcode_, &event, &error))
        return false;
    int major = 2;
    int minor = 1;
    if (XIQueryVersion(display_, &major, &minor) != Success || (major == 2 && minor < 1))
        return false;
    unsigned char bits[XIMaskLen(XI_LASTEVENT)] = {};
    XISetMask(bits, XI_RawMotion);
    XISetMask(bits, XI_RawButtonPress);
    XISetMask(bits, XI_RawButtonRelease);
    XIEventMask mask{.deviceid = XIAllMasterDevices, .mask_len = sizeof bits, .mask = bits};
    XISelectEvents(display_, DefaultRootWindow(display_), &mask, 1);
    XFlush(display_);
    return true;
}

// Events that the query's reply brings into Xlib's queue, where the socket no longer
// announces them, are taken at the end of the rest.
void PointerEventMonitor::serveConnection() {
    if (!drainPendingEvents())
        return;
    reportPointer();
    notifier_->setEnabled(false);
    restTimer_.start();
}

bool PointerEventMonitor::drainPendingEvents() {
    bool pointerChanged = false;
    while (XPending(display_) > 0) {
        XEvent event;
        XNextEvent(display_, &event);
        XGenericEventCookie& cookie = event.xcookie;
        if (cookie.type != GenericEvent || cookie.extension != inputOpcode_)
            continue;
        // The event's data stays unread: Xlib frees it with the next event.
        pointerChanged = true;
    }
    return pointerChanged;
}

void PointerEventMonitor::reportPointer() {
    const X11PointerState pointer = queryPointer(display_);
    handler_(pointer.rootX, pointer.rootY, pointer.buttonMask);
}

} // namespace tidewell
