#pragma once

#include <QTimer>
#include <functional>
#include <memory>

class QSocketNotifier;
struct _XDisplay;

namespace tidewell {

// X11: reports where the pointer is whenever it moves or a button changes, over any window,
// this application's own included. Listens to raw XInput 2 events on a connection of its
// own and reports once per batch of pending events, at most about once a frame while the
// pointer moves, so a pointer at rest costs nothing and a moving one very little.
// Used from the thread of the Qt event loop that serves the connection.
class PointerEventMonitor {
public:
    // x and y in root-window pixels (origin top-left, y down); buttonMask is the core X
    // state (Button1Mask for the primary button, with the modifier bits).
    using Handler = std::function<void(int x, int y, unsigned buttonMask)>;
    // Button1Mask, for callers that keep the X headers out.
    static constexpr unsigned primaryButtonMask = 1u << 8;

    explicit PointerEventMonitor(Handler handler);
    ~PointerEventMonitor();
    PointerEventMonitor(const PointerEventMonitor&) = delete;
    PointerEventMonitor& operator=(const PointerEventMonitor&) = delete;

    // Starting again first stops the running monitor. False when there is no X display or it
    // lacks XInput 2.1; the monitor then stays stopped.
    bool start();
    void stop();

private:
    bool selectRawEvents();
    void serveConnection();
    bool drainPendingEvents();
    void reportPointer();

    Handler handler_;
    _XDisplay* display_ = nullptr;
    int inputOpcode_ = 0;
    std::unique_ptr<QSocketNotifier> notifier_;
    QTimer restTimer_;
};

} // namespace tidewell
