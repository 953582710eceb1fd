#include "Command.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tidewell::bench {
namespace {

std::vector<char*> nullTerminated(const std::vector<std::string>& strings) {
    std::vector<char*> pointers;
    for (const std::string& text : strings)
        pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

// Owns the file actions of one start: where standard output goes and the working folder.
class FileActions {
public:
    FileActions(const std::string& workingFolder, int outputFd) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addchdir_np(&actions_, workingFolder.c_str());
        if (outputFd >= 0)
            posix_spawn_file_actions_adddup2(&actions_, outputFd, STDOUT_FILENO);
        else
            posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    }
    ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_;
};

pid_t start(const Command& command, int outputFd) {
    const FileActions actions(command.workingFolder, outputFd);
    const auto arguments = nullTerminated(command.arguments);
    const auto environment = nullTerminated(command.environment);
    pid_t child = -1;
    const int error = posix_spawn(&child, arguments[0], actions.get(), nullptr, arguments.data(),
                                  environment.data());
    if (error != 0)
        throw std::runtime_error("Cannot start " + command.label + ": " + std::strerror(error));
    return child;
}

void waitForSuccess(pid_t child, const Command& command) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR)
            throw std::runtime_error("Cannot wait for " + command.label + ": " +
                                     std::strerror(errno));
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(command.label + " failed with status " + std::to_string(status));
}

} // namespace

void run(const Command& command) {
    waitForSuccess(start(command, -1), command);
}

double runTimed(const Command& command) {
    const auto begin = std::chrono::steady_clock::now();
    run(command);
    const std::chrono::duration<double, std::milli> elapsed =
        std::chrono::steady_clock::now() - begin;
    return elapsed.count();
}

double medianMilliseconds(const Command& command, int warmUps, int runs) {
    return sideBySideMedians({command}, warmUps, runs).front();
}

std::vector<double> sideBySideMedians(const std::vector<Command>& commands, int warmUps, int runs) {
    for (int i = 0; i < warmUps; ++i)
        for (const Command& command : commands)
            run(command);
    std::vector<std::vector<double>> times(commands.size());
    for (int i = 0; i < runs; ++i)
        for (std::size_t index = 0; index < commands.size(); ++index) {
            std::this_thread::sleep_for(pauseBetweenRuns);
            times[index].push_back(runTimed(commands[index]));
        }
    std::vector<double> medians;
    for (std::vector<double>& series : times) {
        std::sort(series.begin(), series.end());
        const std::size_t middle = series.size() / 2;
        medians.push_back(series.size() % 2 ? series[middle]
                                            : (series[middle - 1] + series[middle]) / 2);
    }
    return medians;
}

std::string capturedOutput(const Command& command) {
    int pipe[2];
    if (::pipe2(pipe, O_CLOEXEC) != 0)
        throw std::runtime_error(std::string("Cannot make a pipe: ") + std::strerror(errno));
    pid_t child = -1;
    try {
        child = start(command, pipe[1]);
    } catch (...) {
        ::close(pipe[0]);
        ::close(pipe[1]);
        throw;
    }
    ::close(pipe[1]);
    std::string output;
    char buffer[4096];
    ssize_t got = 0;
    while ((got = ::read(pipe[0], buffer, sizeof buffer)) != 0) {
        if (got > 0)
            output.append(buffer, static_cast<std::size_t>(got));
        else if (errno != EINTR)
            break;
    }
    ::close(pipe[0]);
    waitForSuccess(child, command);
    return output;
}

} // namespace tidewell::bench
