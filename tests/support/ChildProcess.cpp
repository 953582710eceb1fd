#include "support/ChildProcess.h"

#include <array>
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

namespace tidewell::testing {
namespace {

[[noreturn]] void fail(const std::string& what, int error) {
    throw std::runtime_error(what + ": " + std::strerror(error));
}

int memoryFile(const char* name) {
    const int descriptor = ::memfd_create(name, MFD_CLOEXEC);
    if (descriptor < 0)
        fail("memfd_create", errno);
    return descriptor;
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
    if (error != 0)
        fail("Cannot start " + arguments.front(), error);
    return pid;
}

// Through syscall: glibc 2.36's <sys/pidfd.h> cannot be used from C++.
int pidfdOf(pid_t pid) {
    const int descriptor = static_cast<int>(::syscall(SYS_pidfd_open, pid, 0));
    if (descriptor < 0) {
        const int error = errno;
        ::kill(pid, SIGKILL);
        ::waitpid(pid, nullptr, 0);
        fail("pidfd_open", error);
    }
    return descriptor;
}

// A channel to the program's standard input, or none: a socket, so that writing to a program
// that has ended fails instead of raising SIGPIPE.
std::array<int, 2> inputChannel(bool isWanted) {
    std::array<int, 2> ends = {-1, -1};
    if (isWanted && ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        fail("socketpair", errno);
    return ends;
}

} // namespace

ChildProcess::ChildProcess(const Launch& launch)
    : ChildProcess(launch, inputChannel(launch.takesInput)) {}

ChildProcess::ChildProcess(const Launch& launch, std::array<int, 2> input)
    : output_(memoryFile("stdout")), errors_(memoryFile("stderr")), input_(input[1]),
      pid_(spawn(launch, input[0], output_.get(), errors_.get())), exit_(pidfdOf(pid_)) {}

void ChildProcess::writeInput(const std::string& text) {
    std::size_t written = 0;
    while (written < text.size()) {
        const ssize_t done =
            ::send(input_.get(), text.data() + written, text.size() - written, MSG_NOSIGNAL);
        if (done < 0 && errno != EINTR)
            fail("Cannot write to " + std::to_string(pid_), errno);
        written += done > 0 ? static_cast<std::size_t>(done) : 0;
    }
}

ChildProcess::~ChildProcess() {
    if (!isReaped_) {
        ::kill(pid_, SIGKILL);
        reap();
    }
}

ProcessResult ChildProcess::run(const Launch& launch, std::chrono::milliseconds timeout) {
    return ChildProcess(launch).wait(timeout);
}

std::string ChildProcess::standardOutput() const {
    return contents(output_);
}

std::string ChildProcess::standardError() const {
    return contents(errors_);
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
    result.status = reap();
    result.standardOutput = contents(output_);
    result.standardError = contents(errors_);
    return result;
}

int ChildProcess::reap() {
    int status = 0;
    while (::waitpid(pid_, &status, 0) < 0)
        if (errno != EINTR)
            fail("waitpid", errno);
    isReaped_ = true;
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

} // namespace tidewell::testing
