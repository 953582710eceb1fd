#include "linux/SdBusNotificationCenter.h"

#include "linux/BusNames.h"

#include <systemd/sd-bus.h>
#include <time.h>
#include <vector>

namespace tidewell {
namespace {

using BusNames::interfaceName;
using BusNames::memberName;
using BusNames::objectPath;

std::uint64_t monotonicMicroseconds() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1000000u +
           static_cast<std::uint64_t>(now.tv_nsec) / 1000u;
}

} // namespace

SdBusNotificationCenter::~SdBusNotificationCenter() {
    disconnect();
}

void SdBusNotificationCenter::post(std::string_view name) {
    sd_bus* bus = connection();
    if (!bus)
        return;
    const std::string argument(name);
    if (sd_bus_emit_signal(bus, objectPath, interfaceName, memberName, "s", argument.c_str()) < 0 ||
        sd_bus_flush(bus) < 0)
        disconnect();
}

ObserverToken SdBusNotificationCenter::addObserver(std::string name,
                                                   std::function<void()> handler) {
    const ObserverToken token = nextToken_++;
    observers_.emplace(token, std::pair(std::move(name), std::move(handler)));
    installMatch();
    return token;
}

void SdBusNotificationCenter::removeObserver(ObserverToken token) {
    observers_.erase(token);
}

int SdBusNotificationCenter::fileDescriptor() {
    sd_bus* bus = connection();
    return bus ? sd_bus_get_fd(bus) : -1;
}

int SdBusNotificationCenter::events() {
    const int events = bus_ ? sd_bus_get_events(bus_) : 0;
    return events > 0 ? events : 0;
}

std::uint64_t SdBusNotificationCenter::timeoutMicroseconds() {
    std::uint64_t deadline = UINT64_MAX;
    if (!bus_ || sd_bus_get_timeout(bus_, &deadline) < 0 || deadline == UINT64_MAX)
        return UINT64_MAX;
    const std::uint64_t now = monotonicMicroseconds();
    return deadline > now ? deadline - now : 0;
}

void SdBusNotificationCenter::processPending() {
    while (bus_) {
        const int result = sd_bus_process(bus_, nullptr);
        if (result < 0)
            disconnect();
        if (result <= 0)
            return;
    }
}

// One connection per center, opened when first needed: a command-line process that never
// posts pays nothing, and one that posts pays one connect and handshake.
sd_bus* SdBusNotificationCenter::connection() {
    if (!hasTriedToConnect_) {
        hasTriedToConnect_ = true;
        if (sd_bus_open_user(&bus_) < 0)
            bus_ = nullptr;
    }
    return bus_;
}

// One match for all observers; the names are told apart here.
void SdBusNotificationCenter::installMatch() {
    sd_bus* bus = connection();
    if (!bus || isMatching_)
        return;
    const auto onPosted = [](sd_bus_message* message, void* center, sd_bus_error*) {
        const char* name = nullptr;
        if (sd_bus_message_read(message, "s", &name) >= 0 && name)
            static_cast<SdBusNotificationCenter*>(center)->deliver(name);
        return 0;
    };
    // The match lives as long as the connection; it is installed before this returns.
    isMatching_ = sd_bus_match_signal(bus, nullptr, nullptr, objectPath, interfaceName, memberName,
                                      onPosted, this) >= 0;
}

void SdBusNotificationCenter::disconnect() {
    if (bus_)
        sd_bus_flush_close_unref(bus_);
    bus_ = nullptr;
    isMatching_ = false;
}

void SdBusNotificationCenter::deliver(std::string_view name) noexcept {
    std::vector<ObserverToken> interested;
    for (const auto& [token, observer] : observers_)
        if (observer.first == name)
            interested.push_back(token);
    // A handler may add or remove observers, itself included.
    for (const ObserverToken token : interested) {
        const auto found = observers_.find(token);
        if (found == observers_.end())
            continue;
        const std::function<void()> handler = found->second.second;
        handler();
    }
}

} // namespace tidewell
