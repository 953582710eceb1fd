#pragma once

#include "core/platform/ProcessLauncher.h"

#include <ostream>
#include <string>
#include <vector>

namespace tidewell::ProcessRunner {

// Runs the program with the tool's own standard streams and waits for it. Returns its
// exit status, or 1 after writing the reason to `errors` when it cannot be started.
int run(ProcessLauncher& launcher, std::ostream& errors, const std::string& executable,
        const std::vector<std::string>& arguments);

} // namespace tidewell::ProcessRunner
