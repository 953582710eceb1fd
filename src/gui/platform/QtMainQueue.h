#pragma once

#include "core/platform/MainQueue.h"

#include <QObject>
#include <map>

class QTimer;

namespace tidewell {

// The main queue on the Qt event loop of the thread that creates it. Any thread may post;
// delayed tasks and cancelling belong to that thread. Tasks still waiting when the queue is
// destroyed never run.
class QtMainQueue : public MainQueue {
public:
    // Runs the task at the next turn of the loop, after the tasks posted before it.
    void post(Task task) override;
    // The delay is rounded up to whole milliseconds: a task never runs early.
    TaskId postAfter(std::chrono::nanoseconds delay, Task task) override;
    void cancel(TaskId id) override;

private:
    // Owns the posted calls and the timers, which go away with it.
    QObject context_;
    std::map<TaskId, QTimer*> timers_;
    TaskId nextId_ = 1;
};

} // namespace tidewell
