#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tidewell {

using ObserverToken = std::uint64_t;

// A best-effort broadcast of a bare name to every process of the current user that
// observes it, the posting process included. Posting never fails visibly.
class NotificationPoster {
public:
    virtual ~NotificationPoster() = default;
    virtual void post(std::string_view name) = 0;
};

// A poster that can also be listened to.
class DistributedNotificationCenter : public NotificationPoster {
public:
    virtual ObserverToken addObserver(std::string name, std::function<void()> handler) = 0;
    virtual void removeObserver(ObserverToken token) = 0;
};

} // namespace tidewell
