#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace tidewell::bench {

// One program start: what to run, where, and with exactly which environment.
struct Command {
    std::string label;
    std::vector<std::string> arguments;   // the first is the executable's absolute path
    std::vector<std::string> environment; // "NAME=value" entries; nothing else is inherited
    std::string workingFolder = "/";
};

// Runs the command to its end with standard output thrown away. Throws when it cannot start
// or ends with a non-zero status: a failing command's time would mean nothing.
void run(const Command& command);

// As run, and returns the elapsed wall time in milliseconds.
double runTimed(const Command& command);

// Commands typed by a person are seconds apart and find the disk idle, where a sync costs
// about twice what it costs right after another: each timed start waits this long first.
inline constexpr std::chrono::milliseconds pauseBetweenRuns{20};

// The median of `runs` timed starts after `warmUps` untimed ones.
double medianMilliseconds(const Command& command, int warmUps, int runs);
// The medians of the commands started in turn, one of each per round, so that the load of
// the machine weighs on them alike and their ratios hold where absolute times do not.
std::vector<double> sideBySideMedians(const std::vector<Command>& commands, int warmUps, int runs);

// Runs the command to its end and returns what it wrote to standard output; throws as
// run does.
std::string capturedOutput(const Command& command);

} // namespace tidewell::bench
