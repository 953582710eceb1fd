#include "core/notify/NotificationCenter.h"

#include "support/FakeMainQueue.h"

#include <gtest/gtest.h>

namespace tidewell::testing {
namespace {

TEST(NotificationCenter, ObserversOfTheNameHearEachPostAsALaterTaskWhileBothLive) {
    FakeClock clock;
    FakeMainQueue queue{clock};
    std::vector<std::string> heard;
    NotificationCenter center{queue};
    center.addObserver("Tidewell.itemsChanged", [&] { heard.push_back("first"); });
    const ObserverToken removed =
        center.addObserver("Tidewell.itemsChanged", [&] { heard.push_back("removed"); });
    center.addObserver("Tidewell.itemsChanged", [&] { heard.push_back("second"); });
    center.addObserver("Tidewell.loginStatusChanged", [&] { heard.push_back("login"); });
    {
        NotificationCenter shortLived(queue);
        shortLived.addObserver("Tidewell.itemsChanged", [&] { heard.push_back("late"); });
        shortLived.post("Tidewell.itemsChanged");
    }
    center.post("Tidewell.itemsChanged");
    center.post("Tidewell.itemsChanged");
    EXPECT_TRUE(heard.empty());
    center.removeObserver(removed); // before its tasks run
    queue.runUntilIdle();
    EXPECT_EQ(heard, (std::vector<std::string>{"first", "second", "first", "second"}));
}

TEST(NotificationCenter, AnImmediateCenterDeliversAtOnceAndLetsHandlersRemoveThemselves) {
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
