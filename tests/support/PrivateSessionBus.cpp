#include "support/PrivateSessionBus.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace tidewell::testing {
namespace {

// The daemon prints its address on one line once it accepts connections.
std::string readLine(int fd) {
    std::string line;
    char c = 0;
    while (true) {
        const ssize_t got = ::read(fd, &c, 1);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0 || c == '\n')
            return line;
        line += c;
    }
}

} // namespace

PrivateSessionBus::PrivateSessionBus() {
    int pipe[2];
    if (::pipe2(pipe, O_CLOEXEC) != 0)
        throw std::runtime_error(std::string("pipe2: ") + std::strerror(errno));
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
    char* argv[] = {const_cast<char*>("dbus-daemon"), const_cast<char*>("--session"),
                    const_cast<char*>("--print-address"), const_cast<char*>("--nofork"), nullptr};
    const int error = posix_spawnp(&daemon_, "dbus-daemon", &actions, nullptr, argv, environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(pipe[1]);
    if (error != 0) {
        ::close(pipe[0]);
        throw std::runtime_error(std::string("Cannot start dbus-daemon: ") + std::strerror(error));
    }
    address_ = readLine(pipe[0]);
    ::close(pipe[0]);
    if (address_.empty()) {
        ::kill(daemon_, SIGTERM);
        ::waitpid(daemon_, nullptr, 0);
        throw std::runtime_error("dbus-daemon printed no address");
    }
    environment_.set("DBUS_SESSION_BUS_ADDRESS", address_);
}

PrivateSessionBus::~PrivateSessionBus() {
    ::kill(daemon_, SIGTERM);
    while (::waitpid(daemon_, nullptr, 0) < 0 && errno == EINTR) {
    }
}

} // namespace tidewell::testing
