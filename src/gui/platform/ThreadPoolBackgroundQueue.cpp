#include "gui/platform/ThreadPoolBackgroundQueue.h"

namespace tidewell {

ThreadPoolBackgroundQueue::~ThreadPoolBackgroundQueue() {
    pool_.waitForDone();
}

void ThreadPoolBackgroundQueue::post(std::function<void()> task) {
    pool_.start(std::move(task));
}

} // namespace tidewell
