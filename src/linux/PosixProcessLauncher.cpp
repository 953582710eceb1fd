#include "linux/PosixProcessLauncher.h"

#include "core/platform/Error.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <string_view>
#include <sys/wait.h>
#include <thread>

extern char** environ;

namespace tidewell {
namespace {

// Variables that tie a launch to this process's own start-up notification or activation;
// a program we start must not consume or reuse them.
constexpr std::array<std::string_view, 3> launcherVariables = {
    "DESKTOP_AUTOSTART_ID",
    "DESKTOP_STARTUP_ID",
    "XDG_ACTIVATION_TOKEN",
};

bool isLauncherVariable(const char* entry) {
    const std::string_view text(entry);
    for (const std::string_view name : launcherVariables)
        if (text.size() > name.size() && text.starts_with(name) && text[name.size()] == '=')
            return true;
    return false;
}

std::vector<char*> argumentVector(const std::string& executable,
                                  const std::vector<std::string>& arguments) {
    std::vector<char*> vector{const_cast<char*>(executable.c_str())};
    for (const std::string& argument : arguments)
        vector.push_back(const_cast<char*>(argument.c_str()));
    vector.push_back(nullptr);
    return vector;
}

std::vector<char*> environmentWithoutLauncherVariables() {
    std::vector<char*> environment;
    for (char** entry = environ; *entry; ++entry)
        if (!isLauncherVariable(*entry))
            environment.push_back(*entry);
    environment.push_back(nullptr);
    return environment;
}

// Owns the spawn attributes and file actions of one start.
class SpawnSettings {
public:
    SpawnSettings() {
        posix_spawnattr_init(&attributes_);
        posix_spawn_file_actions_init(&actions_);
        // Signal masks and ignored signals of this process (or of the thread that happens to
        // start the program) are no business of the program.
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes_, &signals);
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        flags_ = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
        posix_spawnattr_setflags(&attributes_, flags_);
    }
    ~SpawnSettings() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    void detach() {
        flags_ |= POSIX_SPAWN_SETSID;
        posix_spawnattr_setflags(&attributes_, flags_);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    }

    // Looks the executable up on PATH unless it contains a slash.
    pid_t spawn(const std::string& executable, const std::vector<std::string>& arguments,
                char* const* environment) {
        pid_t child = 0;
        const auto argv = argumentVector(executable, arguments);
        const int error = posix_spawnp(&child, executable.c_str(), &actions_, &attributes_,
                                       argv.data(), environment);
        if (error != 0)
            throw Error("Cannot start " + executable + ": " + std::strerror(error));
        return child;
    }

private:
    posix_spawnattr_t attributes_;
    posix_spawn_file_actions_t actions_;
    short flags_ = 0;
};

int waitForExit(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0)
        if (errno != EINTR)
            throw Error("Cannot wait for process " + std::to_string(child) + ": " +
                        std::strerror(errno));
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

} // namespace

int PosixProcessLauncher::runAndWait(const std::string& executable,
                                     const std::vector<std::string>& arguments) {
    SpawnSettings settings;
    return waitForExit(settings.spawn(executable, arguments, environ));
}

// The child is our own until it ends, and someone has to collect its exit status or it
// stays a zombie for as long as we run (hours, for the shelf). Ignoring SIGCHLD would
// collect it, but for the whole process: it would break runAndWait and the GUI toolkit's
// own waits. Forking an intermediate that exits right away would copy a large process and
// hide exec failures. So the child is spawned directly and a parked thread waits for just
// this one pid; if we exit first, the child passes to init, which collects it.
void PosixProcessLauncher::startDetached(const std::string& executable,
                                         const std::vector<std::string>& arguments) {
    SpawnSettings settings;
    settings.detach();
    const auto environment = environmentWithoutLauncherVariables();
    const pid_t child = settings.spawn(executable, arguments, environment.data());
    std::thread([child] {
        while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
    }).detach();
}

} // namespace tidewell
