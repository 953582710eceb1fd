#include "support/ChildProcess.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tidewell::testing {
namespace {

struct Pipe {
    int readEnd = -1;
    int writeEnd = -1;
};

[[noreturn]] void fail(const std::string& what, int error) {
    throw std::runtime_error(what + ": " + std::strerror(error));
}

Pipe makePipe() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        fail("pipe2", errno);
    // Only our end is non-blocking: the program writes to its end as to any pipe.
    ::fcntl(ends[0], F_SETFL, O_NONBLOCK);
    return {ends[0], ends[1]};
}

// Null-terminated pointers into the strings, as exec wants them.
std::vector<char*> pointersTo(std::vector<std::string>& strings) {
    std::vector<char*> pointers;
    for (std::string& text : strings)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> environmentEntries(const std::map<std::string, std::string>& variables) {
    std::vector<std::string> entries;
    for (const auto& [name, value] : variables)
        entries.push_back(name + "=" + value);
    return entries;
}

} // namespace

ChildProcess::ChildProcess(const Launch& launch) {
    if (launch.arguments.empty())
        throw std::invalid_argument("ChildProcess needs at least the program");
    const Pipe output = makePipe();
    const Pipe errors = makePipe();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, output.writeEnd, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, errors.writeEnd, STDERR_FILENO);
    if (!launch.workingDirectory.empty())
        posix_spawn_file_actions_addchdir_np(&actions, launch.workingDirectory.c_str());
    std::vector<std::string> arguments = launch.arguments;
    std::vector<std::string> environment = environmentEntries(launch.environment);
    const int error = posix_spawnp(&pid_, arguments.front().c_str(), &actions, nullptr,
                                   pointersTo(arguments).data(), pointersTo(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    ::close(output.writeEnd);
    ::close(errors.writeEnd);
    outputDescriptor_ = output.readEnd;
    errorDescriptor_ = errors.readEnd;
    if (error != 0) {
        closeDescriptors();
        fail("Cannot start " + arguments.front(), error);
    }
    // Through syscall: glibc 2.36's <sys/pidfd.h> cannot be used from C++.
    exitDescriptor_ = static_cast<int>(::syscall(SYS_pidfd_open, pid_, 0));
    if (exitDescriptor_ < 0) {
        const int openError = errno;
        ::kill(pid_, SIGKILL);
        reap();
        closeDescriptors();
        fail("pidfd_open", openError);
    }
}

ChildProcess::~ChildProcess() {
    if (!isReaped_) {
        ::kill(pid_, SIGKILL);
        reap();
    }
    closeDescriptors();
}

ProcessResult ChildProcess::run(const Launch& launch, std::chrono::milliseconds timeout) {
    return ChildProcess(launch).wait(timeout);
}

ProcessResult ChildProcess::wait(std::chrono::milliseconds timeout) {
    if (isReaped_)
        throw std::logic_error("ChildProcess::wait called twice");
    ProcessResult result;
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (true) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) {
            ::kill(pid_, SIGKILL);
            result.timedOut = true;
            break;
        }
        // poll skips the pipes that are closed already (descriptor -1).
        pollfd watched[] = {{exitDescriptor_, POLLIN, 0},
                            {outputDescriptor_, POLLIN, 0},
                            {errorDescriptor_, POLLIN, 0}};
        if (::poll(watched, 3, static_cast<int>(left.count())) < 0 && errno != EINTR)
            fail("poll", errno);
        readAvailable(outputDescriptor_, result.standardOutput);
        readAvailable(errorDescriptor_, result.standardError);
        if (watched[0].revents & POLLIN)
            break;
    }
    result.status = reap();
    drainPipes(result);
    return result;
}

// Reads what the pipe holds now; closes it at its end.
void ChildProcess::readAvailable(int& descriptor, std::string& into) {
    char buffer[65536];
    while (descriptor >= 0) {
        const ssize_t got = ::read(descriptor, buffer, sizeof buffer);
        if (got > 0) {
            into.append(buffer, static_cast<std::size_t>(got));
            continue;
        }
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0 && errno == EAGAIN)
            return;
        ::close(descriptor);
        descriptor = -1;
    }
}

// Everything the ended process wrote is in the pipes by now.
void ChildProcess::drainPipes(ProcessResult& result) {
    readAvailable(outputDescriptor_, result.standardOutput);
    readAvailable(errorDescriptor_, result.standardError);
}

int ChildProcess::reap() {
    int status = 0;
    while (::waitpid(pid_, &status, 0) < 0) {
        if (errno != EINTR)
            fail("waitpid", errno);
    }
    isReaped_ = true;
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

void ChildProcess::closeDescriptors() {
    for (int* descriptor : {&exitDescriptor_, &outputDescriptor_, &errorDescriptor_}) {
        if (*descriptor >= 0)
            ::close(*descriptor);
        *descriptor = -1;
    }
}

} // namespace tidewell::testing
