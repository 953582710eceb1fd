#include "linux/SessionBusPoster.h"

#include "core/platform/FileUrl.h"
#include "linux/BusNames.h"
#include "linux/DBusAnswerCounter.h"
#include "linux/DBusMessageWriter.h"
#include "linux/FileDescriptor.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tidewell {
namespace {

constexpr const char* busName = "org.freedesktop.DBus";
constexpr const char* busPath = "/org/freedesktop/DBus";
constexpr timeval replyTimeout{1, 0};

std::string sessionBusAddress() {
    if (const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS"); address && *address)
        return address;
    if (const char* runtime = std::getenv("XDG_RUNTIME_DIR"); runtime && *runtime == '/')
        return std::string("unix:path=") + runtime + "/bus";
    return "";
}

// A socket connected to the path, with the reply timeout; none when that fails.
FileDescriptor connectTo(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path)
        return {};
    std::memcpy(address.sun_path, path.data(), path.size());
    if (path.front() == '@')
        address.sun_path[0] = '\0';
    // A socket that could not be made fails to connect as well.
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    // An abstract name is as long as given; a path ends at its terminating zero.
    const auto length = static_cast<socklen_t>(
        path.front() == '@' ? offsetof(sockaddr_un, sun_path) + path.size() : sizeof address);
    ::setsockopt(socket.get(), SOL_SOCKET, SO_RCVTIMEO, &replyTimeout, sizeof replyTimeout);
    ::setsockopt(socket.get(), SOL_SOCKET, SO_SNDTIMEO, &replyTimeout, sizeof replyTimeout);
    if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), length) != 0)
        return {};
    return socket;
}

bool sendAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = ::send(fd, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR)
            continue;
        if (sent <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

// Reads until the bus has answered this many method calls.
bool awaitAnswers(int fd, int count) {
    DBusAnswerCounter counter;
    char chunk[4096];
    while (counter.answers() < count) {
        const ssize_t got = ::recv(fd, chunk, sizeof chunk, 0);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0 || !counter.take({chunk, static_cast<std::size_t>(got)}))
            return false;
    }
    return true;
}

std::string authentication() {
    std::string uid = std::to_string(::getuid());
    std::string hex;
    for (const char digit : uid) {
        static constexpr char digits[] = "0123456789abcdef";
        hex += digits[static_cast<unsigned char>(digit) >> 4];
        hex += digits[static_cast<unsigned char>(digit) & 0x0F];
    }
    return std::string(1, '\0') + "AUTH EXTERNAL " + hex + "\r\nBEGIN\r\n";
}

} // namespace

std::string SessionBusPoster::socketPath(std::string_view busAddress) {
    while (!busAddress.empty()) {
        const std::size_t end = std::min(busAddress.find(';'), busAddress.size());
        const std::string_view address = busAddress.substr(0, end);
        busAddress.remove_prefix(std::min(end + 1, busAddress.size()));
        if (!address.starts_with("unix:"))
            continue;
        std::string_view keys = address.substr(5);
        while (!keys.empty()) {
            const std::size_t comma = std::min(keys.find(','), keys.size());
            const std::string_view pair = keys.substr(0, comma);
            keys.remove_prefix(std::min(comma + 1, keys.size()));
            if (pair.starts_with("path="))
                return FileUrl::percentDecoded(pair.substr(5)).value_or("");
            if (pair.starts_with("abstract=")) {
                const auto name = FileUrl::percentDecoded(pair.substr(9));
                return name ? "@" + *name : "";
            }
        }
    }
    return "";
}

void SessionBusPoster::post(std::string_view name) {
    const FileDescriptor socket = connectTo(socketPath(sessionBusAddress()));
    if (socket.get() < 0)
        return;
    using Type = DBusMessageWriter::Type;
    // Authentication, Hello and the signal go out together; the answer to the last call
    // confirms that the signal reached the bus before the connection closes.
    const std::string messages =
        authentication() +
        DBusMessageWriter::message({Type::methodCall, 1, busPath, busName, "Hello", busName}, {}) +
        DBusMessageWriter::message({Type::signal, 2, BusNames::objectPath, BusNames::interfaceName,
                                    BusNames::memberName, ""},
                                   {name}) +
        DBusMessageWriter::message({Type::methodCall, 3, busPath, busName, "GetId", busName}, {});
    if (sendAll(socket.get(), messages))
        awaitAnswers(socket.get(), 2);
}

} // namespace tidewell
