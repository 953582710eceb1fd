#pragma once

#include "core/platform/ProcessLauncher.h"

namespace tidewell {

// Starts programs with posix_spawn, so that even a large process starts children cheaply
// and learns synchronously when a program cannot be executed.
class PosixProcessLauncher : public ProcessLauncher {
public:
    // 128 plus the signal number when the program was killed by a signal.
    int runAndWait(const std::string& executable,
                   const std::vector<std::string>& arguments) override;
    // The program gets its own session, /dev/null as standard input and an environment
    // without the desktop's start-up and activation tokens, which belong to this process.
    void startDetached(const std::string& executable,
                       const std::vector<std::string>& arguments) override;
};

} // namespace tidewell
