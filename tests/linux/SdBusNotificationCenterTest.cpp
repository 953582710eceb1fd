#include "linux/SdBusNotificationCenter.h"

#include "linux/PosixProcessLauncher.h"
#include "support/PrivateSessionBus.h"
#include "support/ScopedEnvironment.h"
#include "support/ServeBus.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>
#include <memory>

namespace tidewell::testing {
namespace {

TEST(SdBusNotificationCenter, PostsReachTheObserversOfTheirNameInEveryProcess) {
    PrivateSessionBus bus;
    SdBusNotificationCenter receiver;
    SdBusNotificationCenter sender;
    std::vector<std::string> heard;
    receiver.addObserver("Tidewell.itemsChanged", [&] { heard.push_back("itemsChanged"); });
    receiver.addObserver("Tidewell.showShelf", [&] { heard.push_back("showShelf"); });
    const ObserverToken removed =
        receiver.addObserver("Tidewell.itemsChanged", [&] { heard.push_back("removed"); });
    receiver.removeObserver(removed);
    int ownPosts = 0;
    sender.addObserver("Tidewell.showShelf", [&] { ++ownPosts; });

    sender.post("Tidewell.itemsChanged");
    sender.post("Tidewell.somethingElse");
    sender.post("Tidewell.showShelf");
    // Signals from one sender arrive in order: once the last is in, all are.
    ASSERT_TRUE(serveUntil(receiver, [&] { return heard.size() >= 2; }));
    ASSERT_TRUE(serveUntil(sender, [&] { return ownPosts == 1; }));

    // The signal of any other program with the agreed path, interface and member is heard too.
    ASSERT_EQ(PosixProcessLauncher().runAndWait(
                  "dbus-send",
                  {"--session", "--type=signal", "/com/quorvel/tidewell",
                   "com.quorvel.tidewell.Notifications.Posted", "string:Tidewell.showShelf"}),
              0);
    ASSERT_TRUE(serveUntil(receiver, [&] { return heard.size() >= 3; }));
    EXPECT_EQ(heard, (std::vector<std::string>{"itemsChanged", "showShelf", "showShelf"}));
}

TEST(SdBusNotificationCenter, LosingTheBusClosesTheConnectionQuietly) {
    auto bus = std::make_unique<PrivateSessionBus>();
    SdBusNotificationCenter center;
    bool called = false;
    center.addObserver("Tidewell.showShelf", [&] { called = true; });
    ASSERT_GE(center.fileDescriptor(), 0);

    bus.reset();
    // A hung-up descriptor would wake the event loop forever; it is given up instead.
    EXPECT_TRUE(serveUntil(center, [&] { return center.fileDescriptor() == -1; }));
    center.post("Tidewell.showShelf");
    center.processPending();
    EXPECT_FALSE(called);
}

TEST(SdBusNotificationCenter, WithoutABusPostingDoesNothingSilently) {
    TemporaryDirectory folder;
    ScopedEnvironment environment;
    environment.set("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + folder.path() + "/no-bus");
    SdBusNotificationCenter center;
    bool called = false;
    center.addObserver("Tidewell.showShelf", [&] { called = true; });
    center.post("Tidewell.showShelf");
    center.processPending();
    EXPECT_EQ(center.fileDescriptor(), -1);
    EXPECT_EQ(center.events(), 0);
    EXPECT_EQ(center.timeoutMicroseconds(), UINT64_MAX);
    EXPECT_FALSE(called);
}

} // namespace
} // namespace tidewell::testing
