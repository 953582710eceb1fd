#include "gui/platform/QtMainQueue.h"

#include <QTimer>
#include <algorithm>
#include <utility>

namespace tidewell {

void QtMainQueue::post(Task task) {
    QMetaObject::invokeMethod(&context_, std::move(task), Qt::QueuedConnection);
}

MainQueue::TaskId QtMainQueue::postAfter(std::chrono::nanoseconds delay, Task task) {
    const TaskId id = nextId_++;
    auto* timer = new QTimer(&context_);
    timer->setSingleShot(true);
    // A coarse timer may fire up to 5 % early or late; the shelf's timings are exact.
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer, &QTimer::timeout, &context_,
                     [this, id, timer, task = std::move(task)]() mutable {
                         timers_.erase(id);
                         timer->deleteLater();
                         // The task may destroy this queue, and with it the timer.
                         const Task run = std::move(task);
                         run();
                     });
    timers_.emplace(id, timer);
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(delay).count();
    timer->start(static_cast<int>(std::max<decltype(milliseconds)>(milliseconds, 0)));
    return id;
}

void QtMainQueue::cancel(TaskId id) {
    const auto found = timers_.find(id);
    if (found == timers_.end())
        return;
    delete found->second;
    timers_.erase(found);
}

} // namespace tidewell
