#include "support/ChildProcess.h"

#include "support/TemporaryDirectory.h"
#include "support/WaitUntil.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>

namespace tidewell::testing {
namespace {

int checked(int result, const std::string& what) {
    if (result < 0)
        throw std::runtime_error(what + ": " + std::strerror(errno));
    return result;
}

// Read from the start through a file description of its own.
std::string contents(const FileDescriptor& file) {
    return readFile("/proc/self/fd/" + std::to_string(file.get())).value_or("");
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

ChildProcess::ChildProcess(const Launch& launch, std::array<int, 2> input)
    : output_(checked(::memfd_create("stdout", MFD_CLOEXEC), "memfd_create")),
      errors_(checked(::memfd_create("stderr", MFD_CLOEXEC), "memfd_create")), input_(input[1]),
      pid_(spawn(launch, input[0], output_.get(), errors_.get())) {}

ChildProcess::~ChildProcess() {
    if (isRunning()) {
        ::kill(pid_, SIGTERM);
        wait(std::chrono::seconds(2));
    }
}

ProcessResult ChildProcess::run(const Launch& launch, std::chrono::milliseconds timeout) {
    return ChildProcess(launch).wait(timeout);
}

bool ChildProcess::isRunning() {
    int status = 0;
    if (!status_ && ::waitpid(pid_, &status, WNOHANG) == pid_)
        status_ = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    return !status_;
}

std::string ChildProcess::standardOutput() const {
    return contents(output_);
}

std::string ChildProcess::standardError() const {
    return contents(errors_);
}

bool ChildProcess::waitForOutput(const std::string& text, std::chrono::milliseconds timeout) {
    const auto found = [&] { return standardOutput().find(text) != std::string::npos; };
    return waitUntil([&] { return found() || !isRunning(); }, timeout) && found();
}

void ChildProcess::writeInput(const std::string& text) {
    const auto size = static_cast<ssize_t>(text.size());
    checked(::send(input_.get(), text.data(), text.size(), MSG_NOSIGNAL) == size ? 0 : -1,
            "Cannot write to " + std::to_string(pid_));
}

// Polled each millisecond: commands of the tool take a few.
ProcessResult ChildProcess::wait(std::chrono::milliseconds timeout) {
    const auto ended = [&] { return !isRunning(); };
    const auto pause = [] { std::this_thread::sleep_for(std::chrono::milliseconds(1)); };
    ProcessResult result;
    result.timedOut = !waitUntil(ended, timeout, pause);
    if (result.timedOut) {
        ::kill(pid_, SIGKILL);
        waitUntil(ended, timeout, pause);
    }
    result.status = status_.value_or(-1);
    result.standardOutput = contents(output_);
    result.standardError = contents(errors_);
    return result;
}

} // namespace tidewell::testing
