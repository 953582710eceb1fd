#include "support/VirtualDisplay.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace tidewell::testing {
namespace {

pid_t spawn(std::vector<std::string> arguments, posix_spawn_file_actions_t* actions) {
    std::vector<char*> argv;
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    pid_t pid = -1;
    if (::posix_spawnp(&pid, argv[0], actions, nullptr, argv.data(), environ) != 0)
        throw std::runtime_error("cannot start " + arguments.front());
    return pid;
}

// The servers outlive a failed test only if something goes badly wrong; even then they
// must not hold the test runner's output open.
void silence(posix_spawn_file_actions_t* actions) {
    posix_spawn_file_actions_addopen(actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
}

// A server that ignores the request to end (openbox can, when it comes early in its start)
// is killed after two seconds, so that a test never hangs on it.
void stop(pid_t pid) {
    if (pid <= 0)
        return;
    ::kill(pid, SIGTERM);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(2);
    while (::waitpid(pid, nullptr, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() >= deadline) {
            ::kill(pid, SIGKILL);
            ::waitpid(pid, nullptr, 0);
            return;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

// The server writes the display number it chose to the descriptor once it accepts clients.
std::string readDisplayNumber(int fd) {
    std::string number;
    char c = 0;
    while (::read(fd, &c, 1) == 1 && c != '\n')
        number += c;
    return number;
}

bool hasWindowManager() {
    FILE* output = ::popen("xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null", "r");
    if (!output)
        return false;
    char line[256] = {};
    const bool found = std::fgets(line, sizeof line, output) && std::strstr(line, "window id");
    ::pclose(output);
    return found;
}

} // namespace

VirtualDisplay::VirtualDisplay()
    : VirtualDisplay({"Xvfb", "-screen", "0", "1920x1080x24", "-nolisten", "tcp"}) {}

VirtualDisplay::VirtualDisplay(const std::vector<std::string>& server) {
    // Servers started side by side by parallel tests now and then lose a race at start-up
    // (seen as a window manager that ends at once); a fresh server is the cure.
    for (int attempt = 1;; ++attempt) {
        try {
            start(server);
            return;
        } catch (const std::runtime_error&) {
            stop(windowManager_);
            stop(server_);
            windowManager_ = server_ = -1;
            if (attempt == 3)
                throw;
        }
    }
}

void VirtualDisplay::start(const std::vector<std::string>& server) {
    int pipe[2];
    if (::pipe(pipe) != 0)
        throw std::runtime_error(std::string("pipe: ") + std::strerror(errno));
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addclose(&actions, pipe[0]);
    silence(&actions);
    std::vector<std::string> arguments = server;
    arguments.insert(arguments.end(), {"-displayfd", std::to_string(pipe[1])});
    server_ = spawn(arguments, &actions);
    posix_spawn_file_actions_destroy(&actions);
    ::close(pipe[1]);
    const std::string number = readDisplayNumber(pipe[0]);
    ::close(pipe[0]);
    if (number.empty())
        throw std::runtime_error(server.front() + " did not start");
    name_ = ":" + number;
    environment_.set("DISPLAY", name_);
    startWindowManager();
}

void VirtualDisplay::runClient(const std::vector<std::string>& arguments) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    silence(&actions);
    const pid_t client = spawn(arguments, &actions);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    ::waitpid(client, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(arguments.front() + " failed: " + arguments.at(1));
}

VirtualDisplay::~VirtualDisplay() {
    stop(windowManager_);
    stop(server_);
}

void VirtualDisplay::startWindowManager() {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    silence(&actions);
    windowManager_ = spawn({"openbox", "--sm-disable"}, &actions);
    posix_spawn_file_actions_destroy(&actions);
    // Tests expect a managed desktop from the start: wait (bounded) for openbox to announce
    // itself on the root window.
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!hasWindowManager()) {
        if (::waitpid(windowManager_, nullptr, WNOHANG) == windowManager_) {
            windowManager_ = -1;
            throw std::runtime_error("openbox ended at start-up");
        }
        if (std::chrono::steady_clock::now() > deadline)
            throw std::runtime_error("openbox did not start");
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

} // namespace tidewell::testing
