#pragma once

#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace tidewell::testing {

// Runs the Qt event loop (deferred deletions included) until `condition` holds; false when it
// still does not after the timeout.
inline bool processEventsUntil(const std::function<bool()>& condition,
                               std::chrono::milliseconds timeout = std::chrono::seconds(5)) {
    return waitUntil(condition, timeout, [] {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
}

} // namespace tidewell::testing
