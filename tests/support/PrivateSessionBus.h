#pragma once

#include "support/ScopedEnvironment.h"

#include <string>
#include <sys/types.h>

namespace tidewell::testing {

// A dbus-daemon of its own, made the session bus of this process (and of the programs it
// starts) through DBUS_SESSION_BUS_ADDRESS until the object goes away.
class PrivateSessionBus {
public:
    PrivateSessionBus();
    ~PrivateSessionBus();
    PrivateSessionBus(const PrivateSessionBus&) = delete;
    PrivateSessionBus& operator=(const PrivateSessionBus&) = delete;

    const std::string& address() const { return address_; }

private:
    pid_t daemon_ = -1;
    std::string address_;
    ScopedEnvironment environment_;
};

} // namespace tidewell::testing
