#include "linux/SdBusNotificationCenter.h"

#include "linux/PosixProcessLauncher.h"
#include "support/PrivateSessionBus.h"
#include "support/ScopedEnvironment.h"
#include "support/ServeBus.h"
#include "support/TemporaryDirectory.h"

#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <poll.h>

namespace tidewell {
namespace {

using namespace std::chrono_literals;
using testing::PrivateSessionBus;
using testing::serveUntil;

class SdBusNotificationCenterTest : public ::testing::Test {
protected:
    PrivateSessionBus bus;
};

TEST_F(SdBusNotificationCenterTest, PostReachesObserversOfThatNameInOtherProcessesAndItself) {
    SdBusNotificationCenter receiver;
    SdBusNotificationCenter sender;
    int itemsChanged = 0;
    int showShelf = 0;
    int ownPosts = 0;
    receiver.addObserver("Tidewell.itemsChanged", [&] { ++itemsChanged; });
    receiver.addObserver("Tidewell.showShelf", [&] { ++showShelf; });
    sender.addObserver("Tidewell.showShelf", [&] { ++ownPosts; });

    sender.post("Tidewell.itemsChanged");
    sender.post("Tidewell.somethingElse");
    sender.post("Tidewell.itemsChanged");
    sender.post("Tidewell.showShelf");

    // Signals from one sender arrive in order: once the last is in, all are.
    ASSERT_TRUE(serveUntil(receiver, [&] { return showShelf == 1; }));
    EXPECT_EQ(itemsChanged, 2);
    ASSERT_TRUE(serveUntil(sender, [&] { return ownPosts == 1; }));
}

TEST_F(SdBusNotificationCenterTest, RemovedObserversHearNothing) {
    SdBusNotificationCenter receiver;
    SdBusNotificationCenter sender;
    int removedCalls = 0;
    int keptCalls = 0;
    const ObserverToken removed =
        receiver.addObserver("Tidewell.itemsChanged", [&] { ++removedCalls; });
    receiver.addObserver("Tidewell.showShelf", [&] { ++keptCalls; });
    receiver.removeObserver(removed);

    sender.post("Tidewell.itemsChanged");
    sender.post("Tidewell.showShelf");
    ASSERT_TRUE(serveUntil(receiver, [&] { return keptCalls == 1; }));
    EXPECT_EQ(removedCalls, 0);
}

TEST_F(SdBusNotificationCenterTest, SignalHasTheAgreedPathInterfaceAndMember) {
    SdBusNotificationCenter receiver;
    int showShelf = 0;
    receiver.addObserver("Tidewell.showShelf", [&] { ++showShelf; });

    PosixProcessLauncher launcher;
    ASSERT_EQ(
        launcher.runAndWait("dbus-send", {"--session", "--type=signal", "/com/quorvel/tidewell",
                                          "com.quorvel.tidewell.Notifications.Posted",
                                          "string:Tidewell.showShelf"}),
        0);
    EXPECT_TRUE(serveUntil(receiver, [&] { return showShelf == 1; }));
}

TEST(SdBusNotificationCenterLosingBus, ClosesTheConnectionAndStaysQuiet) {
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

TEST(SdBusNotificationCenterWithoutBus, PostingDoesNothingSilently) {
    testing::TemporaryDirectory folder;
    testing::ScopedEnvironment environment;
    environment.set("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + folder.path() + "/no-bus");

    SdBusNotificationCenter center;
    bool called = false;
    center.addObserver("Tidewell.showShelf", [&] { called = true; });
    center.post("Tidewell.showShelf");
    center.post("Tidewell.showShelf");
    center.processPending();
    EXPECT_EQ(center.fileDescriptor(), -1);
    EXPECT_EQ(center.events(), 0);
    EXPECT_EQ(center.timeoutMicroseconds(), UINT64_MAX);
    EXPECT_FALSE(called);
}

} // namespace
} // namespace tidewell
