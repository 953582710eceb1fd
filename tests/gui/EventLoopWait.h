#pragma once

#include <QCoreApplication>
#include <QEventLoop>
#include <chrono>
#include <functional>

namespace tidewell::testing {

// Runs the Qt event loop (deferred deletions included) until `condition` holds; false when it
// still does not after the timeout.
inline bool processEventsUntil(const std::function<bool()>& condition,
                               std::chrono::milliseconds timeout = std::chrono::seconds(5)) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

} // namespace tidewell::testing
