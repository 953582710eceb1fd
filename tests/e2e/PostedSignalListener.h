#pragma once

#include <chrono>
#include <string>
#include <systemd/sd-bus.h>
#include <vector>

namespace tidewell::testing {

// Hears the notifications that Tidewell processes broadcast on the session bus. It uses
// sd-bus directly rather than the product's own notification centre, so what is checked is
// the signal on the wire: path, interface, member and its one string argument.
class PostedSignalListener {
public:
    // Connects to the bus named by DBUS_SESSION_BUS_ADDRESS; the match is in place on the
    // bus once this returns, so nothing posted afterwards is missed.
    PostedSignalListener();
    ~PostedSignalListener();
    PostedSignalListener(const PostedSignalListener&) = delete;
    PostedSignalListener& operator=(const PostedSignalListener&) = delete;

    // Serves the bus until `count` notifications of that name have arrived in all; false
    // when the timeout passes first.
    bool waitFor(const std::string& name, int count = 1,
                 std::chrono::milliseconds timeout = std::chrono::seconds(5));
    // The names received so far, in arrival order.
    const std::vector<std::string>& received() const { return received_; }

private:
    static int onPosted(sd_bus_message* message, void* listener, sd_bus_error* error);

    sd_bus* bus_ = nullptr;
    sd_bus_slot* match_ = nullptr;
    std::vector<std::string> received_;
};

} // namespace tidewell::testing
