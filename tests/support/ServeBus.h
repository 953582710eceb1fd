#pragma once

#include "linux/SdBusNotificationCenter.h"
#include "support/WaitUntil.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <poll.h>

namespace tidewell::testing {

// Runs the center's part of an event loop until the condition holds; false after five
// seconds without it (the messages travel through a real daemon).
inline bool serveUntil(SdBusNotificationCenter& center, const std::function<bool()>& condition) {
    return waitUntil(condition, std::chrono::seconds(5), [&] {
        pollfd descriptor{center.fileDescriptor(), static_cast<short>(center.events()), 0};
        const std::uint64_t timeout = std::min<std::uint64_t>(center.timeoutMicroseconds(), 100000);
        ::poll(&descriptor, 1, static_cast<int>((timeout + 999) / 1000));
        center.processPending();
    });
}

} // namespace tidewell::testing
