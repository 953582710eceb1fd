#pragma once

#include "linux/FileDescriptor.h"

#include <array>
#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace tidewell::testing {

// What a finished program left behind.
struct ProcessResult {
    int status = -1; // the exit status, or 128 + the signal that ended it
    std::string standardOutput;
    std::string standardError;
    bool timedOut = false; // it was killed because it ran longer than allowed
};

// A program run as a process of its own, with exactly the given arguments, working folder and
// environment. Its standard input reads /dev/null, or what the test writes to it; its output
// and errors go to files in memory, so nothing it writes can block it. A process still
// running at the end is asked to end, and killed two seconds later.
class ChildProcess {
public:
    struct Launch {
        // The program first: a path, or a name looked up on this process's PATH.
        std::vector<std::string> arguments;
        std::string workingDirectory;
        // The whole environment of the program; nothing is inherited.
        std::map<std::string, std::string> environment;
        // Standard input reads what `writeInput` writes.
        bool takesInput = false;
    };

    explicit ChildProcess(const Launch& launch);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // Starts the program and waits for it.
    static ProcessResult run(const Launch& launch,
                             std::chrono::milliseconds timeout = std::chrono::seconds(10));
    pid_t pid() const { return pid_; }
    bool isRunning();
    // What the program has written so far.
    std::string standardOutput() const;
    std::string standardError() const;
    // Waits until the output holds the text; false once the program ended or the time passed.
    bool waitForOutput(const std::string& text,
                       std::chrono::milliseconds timeout = std::chrono::seconds(10));
    // Writes the text to the program's standard input, which must have been asked for.
    void writeInput(const std::string& text);
    // Waits until the program ends, killing it once the timeout has passed.
    ProcessResult wait(std::chrono::milliseconds timeout = std::chrono::seconds(10));

private:
    ChildProcess(const Launch& launch, std::array<int, 2> input);

    FileDescriptor output_;
    FileDescriptor errors_;
    FileDescriptor input_; // writes to the program's standard input; -1 without
    pid_t pid_;
    std::optional<int> status_; // once ended and reaped
};

} // namespace tidewell::testing
