#pragma once

#include <QSocketNotifier>
#include <QTimer>
#include <memory>

namespace tidewell {

class SdBusNotificationCenter;

// Serves the session-bus connection of a notification centre from the Qt event loop: its
// descriptor wakes the loop when the connection has work, and a timer covers the deadlines
// the connection asks for. Observers are called from the loop. Create it once the centre
// has its observers: the connection opens with the first of them.
class SdBusPump {
public:
    explicit SdBusPump(SdBusNotificationCenter& center);
    ~SdBusPump();
    SdBusPump(const SdBusPump&) = delete;
    SdBusPump& operator=(const SdBusPump&) = delete;

private:
    void serve();
    // Follows what the connection waits for now: its descriptor, events and deadline.
    void watch();
    void watchDescriptor(int descriptor);

    SdBusNotificationCenter& center_;
    int descriptor_ = -1;
    std::unique_ptr<QSocketNotifier> readable_;
    std::unique_ptr<QSocketNotifier> writable_;
    QTimer deadline_;
};

} // namespace tidewell
