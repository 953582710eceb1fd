#include "gui/windowsystem/x11/PointerEventMonitor.h"

#include <QObject>
#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace tidewell {

namespace {
using Clock = std::chrono::steady_clock;

// A fast mouse moves a thousand times a second, but the shelf needs at most one position per
// frame of a 60 Hz display: after a report the thread rests this long, and the events that
// came meanwhile make one report. The first move after a rest is reported at once.
constexpr std::chrono::milliseconds reportInterval{16};
// A warp, or a device whose raw values are positions rather than distances, moves the pointer
// further than its raw events tell: the server is asked at the latest this long after the first
// move since it was last asked, so such a pointer is found within that time; one at rest is
// never asked.
constexpr std::chrono::milliseconds longestGuess{100};

// Far from where moves count the events may wait and cost one wake-up together, as long as a
// pointer flung at this speed could not have come near meanwhile, and at most this long.
constexpr double flingPixelsPerMillisecond = 3;
constexpr std::chrono::milliseconds longestFarRest{40};

std::chrono::milliseconds farRest(double distance) {
    return std::chrono::milliseconds(static_cast<long>(
        std::clamp(distance / flingPixelsPerMillisecond, 0.0, double(longestFarRest.count()))));
}

// Milliseconds until the position last asked for is too old to be trusted.
int untilGuessExpires(Clock::time_point askedAt) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(askedAt + longestGuess - Clock::now());
    return static_cast<int>(std::max<long>(left.count(), 0));
}

// The pointer's steps along x and y, as far as the raw event tells them.
double travelOf(const XIRawEvent& event) {
    double travel = 0;
    int value = 0;
    for (int axis = 0; axis < 2 && axis < event.valuators.mask_len * 8; ++axis) {
        if (!XIMaskIsSet(event.valuators.mask, axis))
            continue;
        // Acceleration may have grown the step beyond the device's own value, or not yet.
        travel +=
            std::max(std::abs(event.valuators.values[value]), std::abs(event.raw_values[value]));
        ++value;
    }
    return travel;
}

// How far a pointer at (x, y) has to go, along x and y together, to be inside `rect`.
int distance(const QRect& rect, int x, int y) {
    const int dx = std::max({rect.left() - x, 0, x - rect.right()});
    const int dy = std::max({rect.top() - y, 0, y - rect.bottom()});
    return dx + dy;
}
} // namespace

struct PointerEventMonitor::Batch {
    bool moved = false;
    bool buttonChanged = false;
    double travel = 0;
};

PointerEventMonitor::PointerEventMonitor(Handler handler) : handler_(std::move(handler)) {}

PointerEventMonitor::~PointerEventMonitor() {
    stop();
}

bool PointerEventMonitor::start() {
    stop();
    display_ = XOpenDisplay(nullptr);
    if (!display_)
        return false;
    stopEvent_ = ::eventfd(0, EFD_CLOEXEC);
    if (stopEvent_ < 0 || !selectRawEvents()) {
        stop();
        return false;
    }
    receiver_ = std::make_unique<QObject>();
    thread_ = std::thread([this] { run(); });
    return true;
}

// Reports still queued go with the receiver.
void PointerEventMonitor::stop() {
    if (thread_.joinable()) {
        const std::uint64_t one = 1;
        [[maybe_unused]] const auto written = ::write(stopEvent_, &one, sizeof one);
        thread_.join();
    }
    receiver_.reset();
    if (stopEvent_ >= 0)
        ::close(stopEvent_);
    stopEvent_ = -1;
    if (display_)
        XCloseDisplay(display_);
    display_ = nullptr;
}

void PointerEventMonitor::setInterest(Interest interest) {
    const std::lock_guard lock(interestMutex_);
    std::swap(interest_, interest);
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
    XSync(display_, False); // moves made once start() returns are seen
    return true;
}

// The thread's loop. `known` is where the server last said the pointer was, `travel` how far
// it may have gone since, `unsettled` whether it moved since; all stay on this thread.
void PointerEventMonitor::run() {
    X11PointerState known = queryPointer(display_);
    Clock::time_point askedAt = Clock::now();
    double travel = 0;
    bool unsettled = false;
    bool wasInside = false;
    pollfd sources[2] = {{ConnectionNumber(display_), POLLIN, 0}, {stopEvent_, POLLIN, 0}};
    for (;;) {
        // Events that a reply brought into Xlib's queue are no longer announced by the socket.
        if (XEventsQueued(display_, QueuedAlready) == 0 &&
            ::poll(sources, 2, unsettled ? untilGuessExpires(askedAt) : -1) < 0 && errno != EINTR)
            return;
        if (sources[1].revents != 0)
            return;
        const Batch batch = drainPendingEvents();
        travel += batch.travel;
        unsettled = unsettled || batch.moved;
        if (!unsettled)
            continue;
        double distance = distanceToInterest(known);
        bool reported = false;
        if (batch.buttonChanged || wasInside || distance <= travel ||
            Clock::now() - askedAt >= longestGuess) {
            known = queryPointer(display_);
            askedAt = Clock::now();
            travel = 0;
            unsettled = false;
            distance = distanceToInterest(known);
            const bool inside = distance == 0;
            const bool left = std::exchange(wasInside, inside);
            reported = inside || left;
            if (reported)
                report(known.rootX, known.rootY, known.buttonMask);
        }
        if (!rest(reported ? reportInterval : farRest(distance - travel)))
            return;
    }
}

PointerEventMonitor::Batch PointerEventMonitor::drainPendingEvents() {
    Batch batch;
    while (XPending(display_) > 0) {
        XEvent event;
        XNextEvent(display_, &event);
        XGenericEventCookie& cookie = event.xcookie;
        if (cookie.type != GenericEvent || cookie.extension != inputOpcode_)
            continue;
        batch.moved = true;
        if (cookie.evtype != XI_RawMotion) {
            batch.buttonChanged = true;
        } else if (XGetEventData(display_, &cookie)) {
            batch.travel += travelOf(*static_cast<const XIRawEvent*>(cookie.data));
            XFreeEventData(display_, &cookie);
        }
    }
    return batch;
}

// How far the pointer has to go from where it was last seen before a move counts: nothing
// while the primary button is held, infinitely far when no move counts.
double PointerEventMonitor::distanceToInterest(const X11PointerState& pointer) {
    if ((pointer.buttonMask & primaryButtonMask) != 0)
        return 0;
    const std::lock_guard lock(interestMutex_);
    if (interest_.everywhere)
        return 0;
    double nearest = std::numeric_limits<double>::infinity();
    for (const QRect& region : interest_.regions)
        nearest = std::min<double>(nearest, distance(region, pointer.rootX, pointer.rootY));
    return nearest;
}

void PointerEventMonitor::report(int x, int y, unsigned buttonMask) {
    QMetaObject::invokeMethod(
        receiver_.get(), [this, x, y, buttonMask] { handler_(x, y, buttonMask); },
        Qt::QueuedConnection);
}

// False when the monitor stops meanwhile.
bool PointerEventMonitor::rest(std::chrono::milliseconds duration) {
    pollfd stopping{stopEvent_, POLLIN, 0};
    return duration.count() == 0 || ::poll(&stopping, 1, static_cast<int>(duration.count())) <= 0;
}

} // namespace tidewell
