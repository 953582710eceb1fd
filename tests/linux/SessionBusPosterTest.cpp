#include "linux/SessionBusPoster.h"

#include "support/PrivateSessionBus.h"
#include "support/ServeBus.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tidewell::testing {
namespace {

TEST(SessionBusPoster, FindsTheSocketInAnyAddressForm) {
    EXPECT_EQ(SessionBusPoster::socketPath("unix:path=/run/user/1000/bus"), "/run/user/1000/bus");
    EXPECT_EQ(SessionBusPoster::socketPath("unix:abstract=/tmp/dbus-x,guid=1f"), "@/tmp/dbus-x");
    EXPECT_EQ(SessionBusPoster::socketPath("unix:guid=1f,path=/tmp/a%20b"), "/tmp/a b");
    EXPECT_EQ(SessionBusPoster::socketPath("tcp:host=localhost;unix:path=/s"), "/s");
    EXPECT_EQ(SessionBusPoster::socketPath("tcp:host=localhost,port=1"), "");
    EXPECT_EQ(SessionBusPoster::socketPath(""), "");
}

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
    environment.set("XDG_RUNTIME_DIR", "relative");
    SessionBusPoster().post("Tidewell.itemsChanged");
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
