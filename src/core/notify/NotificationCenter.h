#pragma once

#include "core/platform/DistributedNotificationCenter.h"
#include "core/platform/MainQueue.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace tidewell {

// The in-process notification centre: observers register for a name and their handlers
// run later as main-queue tasks, one task per observer and post. An observer removed
// before its task runs is not called.
class NotificationCenter {
public:
    using Deliver = std::function<void(MainQueue::Task)>;

    explicit NotificationCenter(MainQueue& queue);
    // For a process without an event loop: `deliver` runs each handler's task.
    explicit NotificationCenter(Deliver deliver) : deliver_(std::move(deliver)) {}

    ObserverToken addObserver(std::string name, std::function<void()> handler);
    void removeObserver(ObserverToken token);
    void post(std::string_view name);

private:
    struct Observer {
        std::string name;
        std::function<void()> handler;
    };
    using Registry = std::map<ObserverToken, Observer>;

    Deliver deliver_;
    // Shared with queued tasks so that a task outliving the centre finds no observers.
    std::shared_ptr<Registry> observers_ = std::make_shared<Registry>();
    ObserverToken nextToken_ = 1;
};

} // namespace tidewell
