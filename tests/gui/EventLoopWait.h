#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <functional>

namespace tidewell::testing {

// Runs the Qt event loop (deferred deletions included) until `condition` holds; false when it still
// does not after the deadline.
inline bool processEventsUntil(const std::function<bool()>& condition, int deadlineMs = 5000) {
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.elapsed() > deadlineMs)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

// Runs the Qt event loop until the condition holds or the timeout passes; returns the
// condition.
inline bool pumpEventsUntil(const std::function<bool()>& condition,
                            std::chrono::milliseconds timeout = std::chrono::seconds(5)) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (!condition() && std::chrono::steady_clock::now() < deadline)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    return condition();
}

// Runs the Qt event loop for this long.
inline void pumpEventsFor(std::chrono::milliseconds duration) {
    QEventLoop loop;
    QTimer::singleShot(duration, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace tidewell::testing
