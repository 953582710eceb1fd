#include "gui/app/SdBusPump.h"

#include "core/notify/NotificationNames.h"
#include "gui/EventLoopWait.h"
#include "linux/SdBusNotificationCenter.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tidewell {
namespace {

using testing::processEventsUntil;

// The program's test desktop provides the private session bus.
TEST(SdBusPump, SignalsPostedByOthersAndByItselfReachTheObserversThroughTheQtLoop) {
    SdBusNotificationCenter receiver;
    std::vector<std::string> heard;
    receiver.addObserver(notchItemsChanged, [&] { heard.push_back(notchItemsChanged); });
    receiver.addObserver(notchShowShelf, [&] { heard.push_back(notchShowShelf); });
    SdBusPump pump(receiver);

    SdBusNotificationCenter sender;
    sender.post(notchItemsChanged);
    sender.post(notchShowShelf);
    ASSERT_TRUE(processEventsUntil([&] { return heard.size() >= 2; }));

    receiver.post(notchShowShelf);
    ASSERT_TRUE(processEventsUntil([&] { return heard.size() >= 3; }));
    EXPECT_EQ(heard, (std::vector<std::string>{notchItemsChanged, notchShowShelf, notchShowShelf}));
}

} // namespace
} // namespace tidewell
