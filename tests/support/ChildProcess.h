#pragma once

#include <chrono>
#include <map>
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
// environment. Its standard input reads /dev/null; standard output and error are captured
// through pipes. A process still running when the object goes away is killed.
class ChildProcess {
public:
    struct Launch {
        // The program first: a path, or a name looked up on this process's PATH.
        std::vector<std::string> arguments;
        std::string workingDirectory;
        // The whole environment of the program; nothing is inherited.
        std::map<std::string, std::string> environment;
    };

    static constexpr std::chrono::milliseconds defaultTimeout{10000};

    explicit ChildProcess(const Launch& launch);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // Starts the program and waits for it.
    static ProcessResult run(const Launch& launch,
                             std::chrono::milliseconds timeout = defaultTimeout);

    pid_t pid() const { return pid_; }
    // Collects the output until the program ends. Once the timeout has passed it is killed
    // and the result says so. Output that programs it started write after it ended is not
    // waited for.
    ProcessResult wait(std::chrono::milliseconds timeout = defaultTimeout);

private:
    void readAvailable(int& descriptor, std::string& into);
    void drainPipes(ProcessResult& result);
    int reap();
    void closeDescriptors();

    pid_t pid_ = -1;
    int exitDescriptor_ = -1; // a pidfd: readable once the process has ended
    int outputDescriptor_ = -1;
    int errorDescriptor_ = -1;
    bool isReaped_ = false;
};

} // namespace tidewell::testing
