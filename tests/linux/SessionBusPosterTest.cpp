#include "linux/SessionBusPoster.h"

#include "support/PrivateSessionBus.h"
#include "support/ScopedEnvironment.h"
#include "support/ServeBus.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace tidewell::testing {
namespace {

TEST(SessionBusPoster, PostsReachListenersOnTheSessionBus) {
    PrivateSessionBus bus;
    SdBusNotificationCenter listener;
    std::vector<std::string> heard;
    listener.addObserver("Tidewell.itemsChanged", [&] { heard.push_back("itemsChanged"); });
    listener.addObserver("Tidewell.showShelf", [&] { heard.push_back("showShelf"); });
    ASSERT_TRUE(serveUntil(listener, [] { return true; }));

    SessionBusPoster poster;
    poster.post("Tidewell.itemsChanged");
    poster.post("Tidewell.showShelf");
    ASSERT_TRUE(serveUntil(listener, [&] { return heard.size() == 2; }));
    EXPECT_EQ(heard, (std::vector<std::string>{"itemsChanged", "showShelf"}));
}

TEST(SessionBusPoster, FindsTheSocketInAnyAddressForm) {
    EXPECT_EQ(SessionBusPoster::socketPath("unix:path=/run/user/1000/bus"), "/run/user/1000/bus");
    EXPECT_EQ(SessionBusPoster::socketPath("unix:abstract=/tmp/dbus-x,guid=1f"), "@/tmp/dbus-x");
    EXPECT_EQ(SessionBusPoster::socketPath("unix:guid=1f,path=/tmp/a%20b"), "/tmp/a b");
    EXPECT_EQ(SessionBusPoster::socketPath("tcp:host=localhost;unix:path=/s"), "/s");
    EXPECT_EQ(SessionBusPoster::socketPath("tcp:host=localhost,port=1"), "");
    EXPECT_EQ(SessionBusPoster::socketPath(""), "");
}

// A socket that takes one connection, keeps what the client sent first and hangs up
// without answering, as a bus that goes away would.
class HangingUpPeer {
public:
    explicit HangingUpPeer(const std::string& path) : server_(::socket(AF_UNIX, SOCK_STREAM, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::copy(path.begin(), path.end(), address.sun_path);
        EXPECT_EQ(::bind(server_, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(server_, 1), 0);
        thread_ = std::thread([this] {
            const int client = ::accept(server_, nullptr, nullptr);
            char bytes[64];
            const ssize_t got = ::recv(client, bytes, sizeof bytes, 0);
            firstBytes_.assign(bytes, got > 0 ? static_cast<std::size_t>(got) : 0);
            ::close(client);
        });
    }
    ~HangingUpPeer() { ::close(server_); }
    std::string firstBytes() {
        thread_.join();
        return firstBytes_;
    }

private:
    int server_;
    std::thread thread_;
    std::string firstBytes_;
};

TEST(SessionBusPoster, UsesTheRuntimeFolderBusAndGivesUpQuietlyWhenItHangsUp) {
    TemporaryDirectory runtime;
    HangingUpPeer peer(runtime.path() + "/bus");
    ScopedEnvironment environment;
    environment.unset("DBUS_SESSION_BUS_ADDRESS");
    environment.set("XDG_RUNTIME_DIR", runtime.path());
    SessionBusPoster().post("Tidewell.itemsChanged");
    EXPECT_TRUE(peer.firstBytes().starts_with(std::string(1, '\0') + "AUTH EXTERNAL "));

    environment.set("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + runtime.path() + "/missing");
    SessionBusPoster().post("Tidewell.itemsChanged"); // nothing to connect to: no effect
}

} // namespace
} // namespace tidewell::testing
