#pragma once

#include <string>
#include <vector>

namespace tidewell {

// Starting other programs. Both operations throw Error when the program cannot be started.
class ProcessLauncher {
public:
    virtual ~ProcessLauncher() = default;
    // Runs the program with this process's standard streams and environment; returns its
    // exit status once it has ended. The executable is looked up on PATH unless it has a slash.
    virtual int runAndWait(const std::string& executable,
                           const std::vector<std::string>& arguments) = 0;
    // Starts the program in a new session, detached from this one, and does not wait.
    virtual void startDetached(const std::string& executable,
                               const std::vector<std::string>& arguments) = 0;
};

} // namespace tidewell
