#include "linux/SessionBusPoster.h"

#include "support/PrivateSessionBus.h"
#include "support/ServeBus.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tidewell::testing {
namespace {

// Posts go through a real daemon, by its address and, without one, by the runtime folder's
// "bus" socket; a bus that is not there is not looked for elsewhere.
TEST(SessionBusPoster, PostsReachTheBusByItsAddressOrTheRuntimeFolder) {
    PrivateSessionBus bus;
    SdBusNotificationCenter receiver;
    int changes = 0;
    bool shown = false;
    receiver.addObserver("Tidewell.itemsChanged", [&] { ++changes; });
    receiver.addObserver("Tidewell.showShelf", [&] { shown = true; });
    ScopedEnvironment environment;

    SessionBusPoster().post("Tidewell.itemsChanged");
    ASSERT_TRUE(serveUntil(receiver, [&] { return changes == 1; }));

    TemporaryDirectory runtime;
    std::filesystem::create_symlink(SessionBusPoster::socketPath(bus.address()),
                                    runtime.path() + "/bus");
    environment.unset("DBUS_SESSION_BUS_ADDRESS");
    environment.set("XDG_RUNTIME_DIR", runtime.path());
    SessionBusPoster().post("Tidewell.itemsChanged");
    ASSERT_TRUE(serveUntil(receiver, [&] { return changes == 2; }));

    environment.set("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + runtime.path() + "/missing");
    SessionBusPoster().post("Tidewell.itemsChanged");
    environment.unset("DBUS_SESSION_BUS_ADDRESS");
    environment.unset("XDG_RUNTIME_DIR");
    SessionBusPoster().post("Tidewell.itemsChanged");
    // Each post ends before the next starts, so this one arrives after any stray one.
    environment.set("DBUS_SESSION_BUS_ADDRESS", bus.address());
    SessionBusPoster().post("Tidewell.showShelf");
    ASSERT_TRUE(serveUntil(receiver, [&] { return shown; }));
    EXPECT_EQ(changes, 2);
}

} // namespace
} // namespace tidewell::testing
