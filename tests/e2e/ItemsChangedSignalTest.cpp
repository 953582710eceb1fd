#include "e2e/EndToEndTest.h"
#include "e2e/PostedSignalListener.h"

namespace tidewell::testing {
namespace {

using ItemsChangedSignalTest = EndToEndTest;

// Each command has ended before the next starts, and the next one's handshake with the daemon
// takes a round trip, by which time the daemon has read all that earlier ones sent: once the
// closing marker is in, every signal of the commands before it is in too.
TEST_F(ItemsChangedSignalTest, EverySaveOfTheToolIsAnnouncedAndNothingElse) {
    PostedSignalListener listener;
    const std::string web = project("web");
    const std::vector<std::pair<std::vector<std::string>, int>> commands = {
        {{"add", "."}, 0},
        {{"add", ".", "--name", "Web"}, 0},
        {{"cache-icons"}, 0},
        {{"list"}, 0},
        {{"remove", "nothing-by-this-name"}, 1},
        {{"nowhere"}, 2},
        {{"help"}, 0},
        {{"login-status"}, 0},
        {{"remove", "Web"}, 0},
    };
    for (const auto& [arguments, status] : commands)
        EXPECT_EQ(tide(arguments, web).status, status) << arguments.front();
    ASSERT_EQ(
        ChildProcess::run(launch("dbus-send",
                                 {"--session", "--type=signal", "/com/quorvel/tidewell",
                                  "com.quorvel.tidewell.Notifications.Posted", "string:marker"},
                                 web))
            .status,
        0);

    ASSERT_TRUE(listener.waitFor("marker"));
    const std::string saved = "Tidewell.itemsChanged";
    EXPECT_EQ(listener.received(),
              (std::vector<std::string>{saved, saved, saved, saved, "marker"}));
}

} // namespace
} // namespace tidewell::testing
