#include "core/notify/NotificationCenter.h"

#include "support/FakeMainQueue.h"

#include <gtest/gtest.h>

namespace tidewell::testing {
namespace {

class NotificationCenterTest : public ::testing::Test {
protected:
    FakeClock clock;
    FakeMainQueue queue{clock};
    NotificationCenter center{queue};
    std::vector<std::string> heard;
};

TEST_F(NotificationCenterTest, ObserversOfTheNameHearEachPostAsALaterMainQueueTask) {
    center.addObserver("Tidewell.itemsChanged", [&] { heard.push_back("first"); });
    const ObserverToken removed =
        center.addObserver("Tidewell.itemsChanged", [&] { heard.push_back("removed"); });
    center.addObserver("Tidewell.itemsChanged", [&] { heard.push_back("second"); });
    center.addObserver("Tidewell.loginStatusChanged", [&] { heard.push_back("login"); });

    center.post("Tidewell.itemsChanged");
    center.post("Tidewell.itemsChanged");
    EXPECT_TRUE(heard.empty());
    // Removed before its tasks run, an observer is not called by them.
    center.removeObserver(removed);
    queue.runUntilIdle();
    EXPECT_EQ(heard, (std::vector<std::string>{"first", "second", "first", "second"}));
}

TEST_F(NotificationCenterTest, TasksThatOutliveTheCenterDoNothing) {
    {
        NotificationCenter shortLived(queue);
        shortLived.addObserver("Tidewell.itemsChanged", [&] { heard.push_back("late"); });
        shortLived.post("Tidewell.itemsChanged");
    }
    queue.runUntilIdle();
    EXPECT_TRUE(heard.empty());
}

TEST(ImmediateNotificationCenter, DeliversAtOnceAndLetsHandlersRemoveThemselves) {
    std::vector<std::string> heard;
    NotificationCenter center([](MainQueue::Task task) { task(); });
    ObserverToken token = 0;
    token = center.addObserver("Tidewell.itemsChanged", [&] {
        heard.push_back("once");
        center.removeObserver(token);
    });
    center.post("Tidewell.itemsChanged");
    center.post("Tidewell.itemsChanged");
    EXPECT_EQ(heard, std::vector<std::string>{"once"});
}

} // namespace
} // namespace tidewell::testing
