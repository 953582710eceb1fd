#pragma once

#include "core/launch/TerminalApp.h"
#include "core/platform/ExecutableLocator.h"
#include "core/platform/FileSystem.h"
#include "core/platform/MainQueue.h"
#include "core/platform/ProcessLauncher.h"

#include <string>
#include <vector>

namespace tidewell {

// The single way a terminal is opened in a folder, optionally running a command there.
// The user's shell runs the line interactively in a new window and stays open. Nothing is
// reported: a terminal that cannot be started is dropped silently.
class TerminalLauncher {
public:
    struct Services {
        FileSystem& files;
        ProcessLauncher& launcher; // starts the emulator detached, in a session of its own
        const ExecutableLocator& executables;
        MainQueue& queue;
        std::string shell;        // the user's login shell, absolute
        std::string scriptFolder; // private, per-user folder for command scripts
    };

    explicit TerminalLauncher(Services services) : services_(std::move(services)) {}

    void run(const std::string& command, const std::string& folder, TerminalApp terminal);

    // "cd '<folder>'", then " && <command>" when there is a command.
    static std::string line(const std::string& command, const std::string& folder);
    static std::string singleQuoted(const std::string& text);
    // The program and arguments that open `terminal` running `line` in `shell`; empty when
    // no terminal at all can be found.
    std::vector<std::string> commandLine(TerminalApp terminal, const std::string& line) const;
    // The emulator actually used for a choice: the choice when installed, else the
    // desktop's default terminal.
    TerminalApp resolved(TerminalApp terminal) const;

private:
    Services services_;
};

} // namespace tidewell
