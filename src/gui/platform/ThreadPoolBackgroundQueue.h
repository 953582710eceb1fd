#pragma once

#include "core/platform/BackgroundQueue.h"

#include <QThreadPool>

namespace tidewell {

// Runs tasks on a pool of threads of its own; going away, it waits for those under way.
class ThreadPoolBackgroundQueue : public BackgroundQueue {
public:
    ~ThreadPoolBackgroundQueue() override;
    void post(std::function<void()> task) override;

private:
    QThreadPool pool_;
};

} // namespace tidewell
