#pragma once

#include "core/platform/DistributedNotificationCenter.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

struct sd_bus;

namespace tidewell {

// Notifications between processes of the user as a broadcast signal on the session bus.
// The connection is opened on first use. Without a session bus, or once the connection
// has failed, posting does nothing and observers hear nothing.
//
// Observers are called from processPending(), which the owner's event loop runs when the
// descriptor is ready or the timeout has passed; they must not throw.
class SdBusNotificationCenter : public DistributedNotificationCenter {
public:
    SdBusNotificationCenter() = default;
    ~SdBusNotificationCenter() override;
    SdBusNotificationCenter(const SdBusNotificationCenter&) = delete;
    SdBusNotificationCenter& operator=(const SdBusNotificationCenter&) = delete;

    // Returns once the signal is written, so that a short-lived process can exit after it.
    void post(std::string_view name) override;
    ObserverToken addObserver(std::string name, std::function<void()> handler) override;
    void removeObserver(ObserverToken token) override;

    // For the event loop: the descriptor to watch (-1 without a connection), the poll(2)
    // events to watch it for, and the microseconds from now after which processPending()
    // is due even without I/O (UINT64_MAX: none). Ask again after each processPending():
    // a connection that fails is closed for good and its descriptor becomes -1.
    int fileDescriptor();
    int events();
    std::uint64_t timeoutMicroseconds();
    void processPending();

private:
    sd_bus* connection();
    void installMatch();
    void disconnect();
    void deliver(std::string_view name) noexcept;

    bool hasTriedToConnect_ = false;
    sd_bus* bus_ = nullptr;
    bool isMatching_ = false;
    std::map<ObserverToken, std::pair<std::string, std::function<void()>>> observers_;
    ObserverToken nextToken_ = 1;
};

} // namespace tidewell
