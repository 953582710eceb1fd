#include "support/ChildProcess.h"

#include "support/WaitUntil.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>

namespace tidewell::testing {
namespace {

int checked(int result, const std::string& what) {
    if (result < 0)
        throw std::runtime_error(what + ": " + std::strerror(errno));
    return result;
}

std::string contents(const FileDescriptor& file) {
    std::string text;
    char buffer[65536];
    ssize_t got = 0;
    while ((got = ::pread(file.get(), buffer, sizeof buffer, static_cast<off_t>(text.size()))) > 0)
        text.append(buffer, static_cast<std::size_t>(got));
    return text;
}

// Null-terminated pointers into the strings, as exec wants them.
std::vector<char*> pointersTo(std::vector<std::string>& strings) {
    std::vector<char*> pointers;
    for (std::string& text : strings)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

// The program's standard input: its end of the input channel, else /dev/null.
pid_t spawn(const ChildProcess::Launch& launch, int input, int output, int errors) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (input >= 0)
        posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    else
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, errors, STDERR_FILENO);
    if (!launch.workingDirectory.empty())
        posix_spawn_file_actions_addchdir_np(&actions, launch.workingDirectory.c_str());
    std::vector<std::string> arguments = launch.arguments;
    std::vector<std::string> environment;
    for (const auto& [name, value] : launch.environment)
        environment.push_back(name + "=" + value);
    pid_t pid = -1;
    const int error = posix_spawnp(&pid, arguments.at(0).c_str(), &actions, nullptr,
                                   pointersTo(arguments).data(), pointersTo(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    if (input >= 0)
        ::close(input); // the program's own now
    errno = error;
    return checked(error ? -1 : pid, "Cannot start " + arguments.front());
}

// A channel to the program's standard input, or none: a socket, so that writing to a program
// that has ended fails instead of raising SIGPIPE.
std::array<int, 2> inputChannel(bool isWanted) {
    std::array<int, 2> ends = {-1, -1};
    if (isWanted)
        checked(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), "socketpair");
    return ends;
}

} // namespace

ChildProcess::ChildProcess(const Launch& launch)
    : ChildProcess(launch, inputChannel(launch.takesInput)) {}

// The pidfd through syscall: glibc 2.36's <sys/pidfd.h> cannot be used from C++.
ChildProcess::ChildProcess(const Launch& launch, std::array<int, 2> input)
    : output_(checked(::memfd_create("stdout", MFD_CLOEXEC), "memfd_create")),
      errors_(checked(::memfd_create("stderr", MFD_CLOEXEC), "memfd_create")), input_(input[1]),
      pid_(spawn(launch, input[0], output_.get(), errors_.get())),
      exit_(checked(static_cast<int>(::syscall(SYS_pidfd_open, pid_, 0)), "pidfd_open")) {}

ChildProcess::~ChildProcess() {
    if (!isReaped_) {
        ::kill(pid_, SIGTERM);
        wait(std::chrono::seconds(2));
    }
}

ProcessResult ChildProcess::run(const Launch& launch, std::chrono::milliseconds timeout) {
    return ChildProcess(launch).wait(timeout);
}

bool ChildProcess::isRunning() const {
    pollfd ended{exit_.get(), POLLIN, 0};
    return !isReaped_ && ::poll(&ended, 1, 0) == 0;
}

std::string ChildProcess::standardOutput() const {
    return contents(output_);
}

std::string ChildProcess::standardError() const {
    return contents(errors_);
}

bool ChildProcess::waitForOutput(const std::string& text, std::chrono::milliseconds timeout) const {
    const auto found = [&] { return standardOutput().find(text) != std::string::npos; };
    return waitUntil([&] { return found() || !isRunning(); }, timeout) && found();
}

void ChildProcess::writeInput(const std::string& text) {
    for (std::size_t written = 0; written < text.size();) {
        const ssize_t done =
            ::send(input_.get(), text.data() + written, text.size() - written, MSG_NOSIGNAL);
        if (done < 0 && errno != EINTR)
            checked(-1, "Cannot write to " + std::to_string(pid_));
        written += done > 0 ? static_cast<std::size_t>(done) : 0;
    }
}

ProcessResult ChildProcess::wait(std::chrono::milliseconds timeout) {
    ProcessResult result;
    pollfd ended{exit_.get(), POLLIN, 0};
    int ready = 0;
    while ((ready = ::poll(&ended, 1, static_cast<int>(timeout.count()))) < 0 && errno == EINTR) {
    }
    if (ready == 0) {
        ::kill(pid_, SIGKILL);
        result.timedOut = true;
    }
    int status = 0;
    while (::waitpid(pid_, &status, 0) < 0)
        checked(errno == EINTR ? 0 : -1, "waitpid");
    isReaped_ = true;
    result.status = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    result.standardOutput = contents(output_);
    result.standardError = contents(errors_);
    return result;
}

} // namespace tidewell::testing
