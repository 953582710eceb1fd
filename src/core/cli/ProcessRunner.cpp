#include "core/cli/ProcessRunner.h"

#include "core/platform/Error.h"

namespace tidewell::ProcessRunner {

int run(ProcessLauncher& launcher, std::ostream& errors, const std::string& executable,
        const std::vector<std::string>& arguments) {
    try {
        return launcher.runAndWait(executable, arguments);
    } catch (const Error& error) {
        errors << error.what() << '\n';
        return 1;
    }
}

} // namespace tidewell::ProcessRunner
