#include "e2e/EndToEndTest.h"
#include "e2e/PostedSignalListener.h"

namespace tidewell::testing {
namespace {

constexpr const char* itemsChanged = "Tidewell.itemsChanged";

class ItemsChangedSignalTest : public EndToEndTest {
protected:
    PostedSignalListener listener;
};

TEST_F(ItemsChangedSignalTest, EverySaveOfTheToolIsAnnouncedOnTheSessionBus) {
    const std::string web = project("web");

    ASSERT_EQ(tide({"add", "."}, web).status, 0);
    ASSERT_TRUE(listener.waitFor(itemsChanged, 1));
    ASSERT_EQ(tide({"add", ".", "--name", "Web"}, web).status, 0);
    ASSERT_TRUE(listener.waitFor(itemsChanged, 2));
    ASSERT_EQ(tide({"cache-icons"}, web).status, 0);
    ASSERT_TRUE(listener.waitFor(itemsChanged, 3));
    ASSERT_EQ(tide({"remove", "Web"}, web).status, 0);
    ASSERT_TRUE(listener.waitFor(itemsChanged, 4));
    EXPECT_EQ(listener.received(), std::vector<std::string>(4, itemsChanged));
}

// Each command here has ended before the next starts, and the next one's handshake with the
// daemon takes a round trip, by which time the daemon has read all that earlier ones sent: when
// the closing save's signal is in, any signal of the commands before it would be in too.
TEST_F(ItemsChangedSignalTest, CommandsThatSaveNothingPostNothing) {
    const std::string web = project("web");
    ASSERT_EQ(tide({"add", "."}, web).status, 0);
    ASSERT_TRUE(listener.waitFor(itemsChanged, 1));

    EXPECT_EQ(tide({"list"}, web).status, 0);
    EXPECT_EQ(tide({"remove", "nothing-by-this-name"}, web).status, 1);
    EXPECT_EQ(tide({"does-not-exist"}, web).status, 2);
    EXPECT_EQ(tide({"help"}, web).status, 0);
    EXPECT_EQ(tide({"login-status"}, web).status, 0);

    ASSERT_EQ(tide({"remove", "web"}, web).status, 0);
    ASSERT_TRUE(listener.waitFor(itemsChanged, 2));
    EXPECT_EQ(listener.received(), std::vector<std::string>(2, itemsChanged));
}

} // namespace
} // namespace tidewell::testing
