#pragma once

#include "core/platform/Clock.h"
#include "core/platform/MainQueue.h"

#include <map>
#include <utility>

namespace tidewell::testing {

// A clock that only moves when a test moves it. Starts at 2025-03-04T18:07:41Z.
class FakeClock : public Clock {
public:
    Date now() const override { return now_; }
    void advance(std::chrono::nanoseconds by) {
        now_ += std::chrono::duration_cast<Date::duration>(by);
    }

private:
    Date now_ = Date(std::chrono::seconds(1741111661));
};

// A main queue on virtual time: tasks run only when the test drains or advances it, in
// the order of their due time and then of posting. Advancing also moves the clock.
class FakeMainQueue : public MainQueue {
public:
    explicit FakeMainQueue(FakeClock& clock) : clock_(clock) {}

    void post(Task task) override { postAfter(std::chrono::nanoseconds(0), std::move(task)); }

    TaskId postAfter(std::chrono::nanoseconds delay, Task task) override {
        const TaskId id = nextId_++;
        tasks_.emplace(std::pair(elapsed_ + delay, id), std::move(task));
        return id;
    }

    void cancel(TaskId id) override {
        std::erase_if(tasks_, [id](const auto& entry) { return entry.first.second == id; });
    }

    // Runs every task due now, including tasks they post for now.
    void runUntilIdle() { advance(std::chrono::nanoseconds(0)); }

    // Moves time forward, running each task at its due time.
    void advance(std::chrono::nanoseconds by) {
        const auto until = elapsed_ + by;
        while (!tasks_.empty() && tasks_.begin()->first.first <= until) {
            auto entry = tasks_.extract(tasks_.begin());
            clock_.advance(entry.key().first - elapsed_);
            elapsed_ = entry.key().first;
            entry.mapped()();
        }
        clock_.advance(until - elapsed_);
        elapsed_ = until;
    }

    std::size_t pendingCount() const { return tasks_.size(); }

private:
    FakeClock& clock_;
    std::chrono::nanoseconds elapsed_{0};
    TaskId nextId_ = 1;
    std::map<std::pair<std::chrono::nanoseconds, TaskId>, Task> tasks_;
};

} // namespace tidewell::testing
