#include "support/PrivateSessionBus.h"

#include <stdexcept>

namespace tidewell::testing {

// The daemon prints its address on one line once it accepts connections.
PrivateSessionBus::PrivateSessionBus()
    : daemon_({.arguments = {"dbus-daemon", "--session", "--print-address", "--nofork"}}) {
    if (!daemon_.waitForOutput("\n"))
        throw std::runtime_error("dbus-daemon printed no address");
    address_ = daemon_.standardOutput();
    address_.pop_back();
    environment_.set("DBUS_SESSION_BUS_ADDRESS", address_);
}

} // namespace tidewell::testing
