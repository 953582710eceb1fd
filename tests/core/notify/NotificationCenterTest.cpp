#include "core/notify/NotificationCenter.h"

#include "support/FakeMainQueue.h"

#include <gtest/gtest.h>

namespace tidewell::testing {
namespace {

// Each post reaches the observers of its name as a later task, while both the centre and
// the observer live; an immediate centre delivers at once and handlers may remove themselves.
TEST(NotificationCenter, ObserversOfTheNameHearEachPostAsALaterTaskWhileBothLive) {
    FakeClock clock;
    FakeMainQueue queue{clock};
    std::vector<std::string> heard;
    NotificationCenter center{queue};
    const auto note = [&](const char* text) { return [&heard, text] { heard.push_back(text); }; };
    center.addObserver("Tidewell.itemsChanged", note("first"));
    const ObserverToken removed = center.addObserver("Tidewell.itemsChanged", note("removed"));
    center.addObserver("Tidewell.itemsChanged", note("second"));
    center.addObserver("Tidewell.loginStatusChanged", note("login"));
    {
        NotificationCenter shortLived(queue);
        shortLived.addObserver("Tidewell.itemsChanged", note("late"));
        shortLived.post("Tidewell.itemsChanged");
    }
    center.post("Tidewell.itemsChanged");
    center.post("Tidewell.itemsChanged");
    EXPECT_TRUE(heard.empty());
    center.removeObserver(removed); // before its tasks run
    queue.runUntilIdle();

    NotificationCenter immediate([](MainQueue::Task task) { task(); });
    ObserverToken token = 0;
    token = immediate.addObserver("Tidewell.itemsChanged", [&] {
        heard.push_back("once");
        immediate.removeObserver(token);
    });
    immediate.post("Tidewell.itemsChanged");
    immediate.post("Tidewell.itemsChanged");
    EXPECT_EQ(heard, (std::vector<std::string>{"first", "second", "first", "second", "once"}));
}

} // namespace
} // namespace tidewell::testing
