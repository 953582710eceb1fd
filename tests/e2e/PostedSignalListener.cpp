#include "e2e/PostedSignalListener.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace tidewell::testing {

PostedSignalListener::PostedSignalListener() {
    const int opened = sd_bus_open_user(&bus_);
    if (opened < 0)
        throw std::runtime_error(std::string("sd_bus_open_user: ") + std::strerror(-opened));
    const int matched =
        sd_bus_match_signal(bus_, &match_, nullptr, "/com/quorvel/tidewell",
                            "com.quorvel.tidewell.Notifications", "Posted", onPosted, this);
    if (matched < 0) {
        sd_bus_flush_close_unref(bus_);
        throw std::runtime_error(std::string("sd_bus_match_signal: ") + std::strerror(-matched));
    }
}

PostedSignalListener::~PostedSignalListener() {
    sd_bus_slot_unref(match_);
    sd_bus_flush_close_unref(bus_);
}

bool PostedSignalListener::waitFor(const std::string& name, int count,
                                   std::chrono::milliseconds timeout) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (true) {
        while (sd_bus_process(bus_, nullptr) > 0) {
        }
        if (std::count(received_.begin(), received_.end(), name) >= count)
            return true;
        const auto left = std::chrono::duration_cast<std::chrono::microseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0)
            return false;
        sd_bus_wait(bus_, static_cast<std::uint64_t>(left.count()));
    }
}

int PostedSignalListener::onPosted(sd_bus_message* message, void* listener, sd_bus_error*) {
    const char* name = nullptr;
    if (sd_bus_message_read(message, "s", &name) >= 0 && name)
        static_cast<PostedSignalListener*>(listener)->received_.emplace_back(name);
    return 0;
}

} // namespace tidewell::testing
