#include "linux/SessionBusPoster.h"

#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

// What the posts look like on a real bus is checked end to end, with a listener of its own.
namespace tidewell::testing {
namespace {

TEST(SessionBusPoster, FindsTheSocketInAnyAddressForm) {
    EXPECT_EQ(SessionBusPoster::socketPath("unix:path=/run/user/1000/bus"), "/run/user/1000/bus");
    EXPECT_EQ(SessionBusPoster::socketPath("unix:abstract=/tmp/dbus-x,guid=1f"), "@/tmp/dbus-x");
    EXPECT_EQ(SessionBusPoster::socketPath("unix:guid=1f,path=/tmp/a%20b"), "/tmp/a b");
    EXPECT_EQ(SessionBusPoster::socketPath("tcp:host=localhost;unix:path=/s"), "/s");
    EXPECT_EQ(SessionBusPoster::socketPath("tcp:host=localhost,port=1"), "");
    EXPECT_EQ(SessionBusPoster::socketPath(""), "");
}

// Without an address the bus is the runtime folder's. Here a socket there takes one
// connection, keeps what the client sent first and hangs up without answering, as a bus
// that goes away would.
TEST(SessionBusPoster, UsesTheRuntimeFolderBusAndGivesUpQuietlyWhenItHangsUp) {
    TemporaryDirectory runtime;
    const int server = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{.sun_family = AF_UNIX};
    const std::string path = runtime.path() + "/bus";
    std::copy(path.begin(), path.end(), address.sun_path);
    ASSERT_EQ(::bind(server, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(server, 1), 0);
    std::string firstBytes;
    std::thread peer([&] {
        const int client = ::accept(server, nullptr, nullptr);
        char bytes[64];
        const ssize_t got = ::recv(client, bytes, sizeof bytes, 0);
        firstBytes.assign(bytes, got > 0 ? static_cast<std::size_t>(got) : 0);
        ::close(client);
    });

    ScopedEnvironment environment;
    environment.unset("DBUS_SESSION_BUS_ADDRESS");
    environment.set("XDG_RUNTIME_DIR", runtime.path());
    SessionBusPoster().post("Tidewell.itemsChanged");
    peer.join();
    ::close(server);
    EXPECT_TRUE(firstBytes.starts_with(std::string(1, '\0') + "AUTH EXTERNAL ")) << firstBytes;

    environment.set("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + runtime.path() + "/missing");
    SessionBusPoster().post("Tidewell.itemsChanged"); // nothing to connect to: no effect
    environment.unset("DBUS_SESSION_BUS_ADDRESS");
    environment.unset("XDG_RUNTIME_DIR");
    SessionBusPoster().post("Tidewell.itemsChanged"); // no bus anywhere: no effect
}

} // namespace
} // namespace tidewell::testing
