#pragma once

#include "gui/windowsystem/x11/X11PointerQuery.h"

#include <QRect>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

class QObject;
struct _XDisplay;

namespace tidewell {

// X11: reports where the pointer is when it moves or a button changes, over any window, this
// application's own included, but only where a move can matter: inside the regions of
// interest, anywhere while a button is held, and once more on leaving them. A thread of its
// own reads raw XInput 2 events on a connection of its own. Raw events tell how far a device
// moved, not where the pointer is, so the thread asks the server only when the moves since it
// last asked could have reached a region: a move far from them costs little more than reading
// its event, and does not wake the main thread. Reports reach the handler on the thread that
// started the monitor, at most about once a frame; a pointer at rest costs nothing.
class PointerEventMonitor {
public:
    // x and y in root-window pixels (origin top-left, y down); buttonMask is the core X
    // state (Button1Mask for the primary button, with the modifier bits).
    using Handler = std::function<void(int x, int y, unsigned buttonMask)>;
    // Button1Mask, for callers that keep the X headers out.
    static constexpr unsigned primaryButtonMask = 1u << 8;
    // Where moves count, in root-window pixels.
    struct Interest {
        bool everywhere = true;
        std::vector<QRect> regions;
    };

    explicit PointerEventMonitor(Handler handler);
    ~PointerEventMonitor();
    PointerEventMonitor(const PointerEventMonitor&) = delete;
    PointerEventMonitor& operator=(const PointerEventMonitor&) = delete;

    // Starting again first stops the running monitor. False when there is no X display or it
    // lacks XInput 2.1; the monitor then stays stopped.
    bool start();
    void stop();
    // From any thread; until then every move counts.
    void setInterest(Interest interest);

private:
    struct Batch;

    bool selectRawEvents();
    void run();
    Batch drainPendingEvents();
    double distanceToInterest(const X11PointerState& pointer);
    void report(int x, int y, unsigned buttonMask);
    bool rest(std::chrono::milliseconds duration);

    Handler handler_;
    _XDisplay* display_ = nullptr;
    int inputOpcode_ = 0;
    int stopEvent_ = -1;
    std::unique_ptr<QObject> receiver_;
    std::thread thread_;
    std::mutex interestMutex_;
    Interest interest_;
};

} // namespace tidewell
