#pragma once

#include "support/ChildProcess.h"
#include "support/ScopedEnvironment.h"

#include <string>

namespace tidewell::testing {

// A dbus-daemon of its own, made the session bus of this process (and of the programs it
// starts) through DBUS_SESSION_BUS_ADDRESS until the object goes away.
class PrivateSessionBus {
public:
    PrivateSessionBus();

    const std::string& address() const { return address_; }

private:
    ChildProcess daemon_;
    std::string address_;
    ScopedEnvironment environment_;
};

} // namespace tidewell::testing
