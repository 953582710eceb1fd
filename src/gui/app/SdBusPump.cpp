#include "gui/app/SdBusPump.h"

#include "linux/SdBusNotificationCenter.h"

#include <algorithm>
#include <climits>
#include <poll.h>

namespace tidewell {
namespace {

// The notifier may be the one whose signal is being handled: it goes once that is over.
void retire(std::unique_ptr<QSocketNotifier>& notifier) {
    if (!notifier)
        return;
    notifier->setEnabled(false);
    notifier.release()->deleteLater();
}

} // namespace

SdBusPump::SdBusPump(SdBusNotificationCenter& center) : center_(center) {
    deadline_.setSingleShot(true);
    deadline_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&deadline_, &QTimer::timeout, [this] { serve(); });
    watch();
}

SdBusPump::~SdBusPump() = default;

void SdBusPump::serve() {
    center_.processPending();
    watch();
}

void SdBusPump::watch() {
    const int descriptor = center_.fileDescriptor();
    if (descriptor != descriptor_)
        watchDescriptor(descriptor);
    if (descriptor < 0) {
        deadline_.stop();
        return;
    }
    const int events = center_.events();
    readable_->setEnabled((events & POLLIN) != 0);
    writable_->setEnabled((events & POLLOUT) != 0);
    const std::uint64_t microseconds = center_.timeoutMicroseconds();
    if (microseconds == UINT64_MAX) {
        deadline_.stop();
        return;
    }
    // Rounded up, so that the deadline has passed when the timer fires.
    const std::uint64_t milliseconds =
        std::min<std::uint64_t>((microseconds + 999) / 1000, INT_MAX);
    deadline_.start(static_cast<int>(milliseconds));
}

// A failed connection is closed for good: its descriptor is then -1 and nothing is watched.
void SdBusPump::watchDescriptor(int descriptor) {
    retire(readable_);
    retire(writable_);
    descriptor_ = descriptor;
    if (descriptor < 0)
        return;
    readable_ = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    writable_ = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Write);
    QObject::connect(readable_.get(), &QSocketNotifier::activated, [this] { serve(); });
    QObject::connect(writable_.get(), &QSocketNotifier::activated, [this] { serve(); });
}

} // namespace tidewell
