#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace tidewell {

// The application's main thread as a task queue. Everything that touches shared state
// runs as a task here; delayed work can be cancelled before it runs.
class MainQueue {
public:
    using Task = std::function<void()>;
    using TaskId = std::uint64_t;

    virtual ~MainQueue() = default;
    // Safe from any thread: work done elsewhere hands its result back this way.
    virtual void post(Task task) = 0;
    virtual TaskId postAfter(std::chrono::nanoseconds delay, Task task) = 0;
    virtual void cancel(TaskId id) = 0;
};

} // namespace tidewell
