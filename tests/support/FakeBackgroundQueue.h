#pragma once

#include "core/platform/BackgroundQueue.h"

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace tidewell::testing {

// Keeps the tasks until the test runs them, in whatever order it chooses.
class FakeBackgroundQueue : public BackgroundQueue {
public:
    void post(std::function<void()> task) override { tasks_.push_back(std::move(task)); }

    std::size_t pendingCount() const { return tasks_.size(); }
    // Runs and forgets the task at `index` among those still pending, in posting order.
    void run(std::size_t index) {
        const auto task = std::move(tasks_.at(index));
        tasks_.erase(tasks_.begin() + static_cast<std::ptrdiff_t>(index));
        task();
    }
    void runAll() {
        while (!tasks_.empty())
            run(0);
    }

private:
    std::vector<std::function<void()>> tasks_;
};

} // namespace tidewell::testing
