#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
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

} // namespace tidewell::testing
