#include "linux/SessionBusPoster.h"

#include "linux/DBusAnswerCounter.h"
#include "linux/DBusMessageWriter.h"
#include "support/PrivateSessionBus.h"
#include "support/ServeBus.h"
#include "support/TemporaryDirectory.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <vector>

namespace tidewell::testing {

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
    EXPECT_EQ(SessionBusPoster::socketPath("tcp:host=h;unix:guid=1,abstract=a%20b"), "@a b");

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

// An answer counts when its last byte arrives, however the bus's stream is cut; signals in
// between do not count, and a refused authentication ends the reading.
TEST(DBusAnswerCounter, CountsReturnsAndErrorsWhenTheirLastByteArrives) {
    const auto message = [](char type, std::initializer_list<std::string_view> body) {
        std::string bytes =
            DBusMessageWriter::message({DBusMessageWriter::Type::signal, 7, "/org/freedesktop/DBus",
                                        "org.freedesktop.DBus", "NameAcquired", ":1.42"},
                                       body);
        bytes[1] = type;
        return bytes;
    };
    std::string stream = "OK 1234abcd\r\n";
    std::vector<std::size_t> answerEnds;
    for (const std::string& next : {message(2, {":1.42"}), message(4, {":1.42"}), message(3, {})}) {
        stream += next;
        if (next[1] != 4)
            answerEnds.push_back(stream.size());
    }
    DBusAnswerCounter counter;
    for (std::size_t end = 1; end <= stream.size(); ++end) {
        ASSERT_TRUE(counter.take(stream.substr(end - 1, 1)));
        EXPECT_EQ(counter.answers(),
                  std::ranges::count_if(answerEnds, [&](auto e) { return e <= end; }))
            << "after " << end << " bytes";
    }
    DBusAnswerCounter whole;
    EXPECT_TRUE(whole.take(stream));
    EXPECT_EQ(whole.answers(), 2);
    EXPECT_FALSE(DBusAnswerCounter().take("REJECTED EXTERNAL\r\n"));
}

} // namespace tidewell::testing
