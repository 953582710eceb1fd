#pragma once

#include <functional>

namespace tidewell {

// Worker threads for work that must not hold up the main thread. Tasks run concurrently, in
// no set order; a task that needs shared state posts the result to the main queue.
class BackgroundQueue {
public:
    virtual ~BackgroundQueue() = default;
    virtual void post(std::function<void()> task) = 0;
};

} // namespace tidewell
