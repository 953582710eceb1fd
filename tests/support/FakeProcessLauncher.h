#pragma once

#include "core/platform/Error.h"
#include "core/platform/ProcessLauncher.h"

#include <optional>
#include <string>
#include <vector>

namespace tidewell::testing {

// Records every start instead of starting anything; can be told to fail.
class FakeProcessLauncher : public ProcessLauncher {
public:
    struct Launch {
        std::string executable;
        std::vector<std::string> arguments;
        bool isDetached = false;
        bool operator==(const Launch&) const = default;
    };

    int runAndWait(const std::string& executable,
                   const std::vector<std::string>& arguments) override {
        record(executable, arguments, false);
        return 0;
    }
    void startDetached(const std::string& executable,
                       const std::vector<std::string>& arguments) override {
        record(executable, arguments, true);
    }

    std::vector<Launch> launches;
    std::optional<std::string> startFailure; // when set, starting throws Error with this text

private:
    void record(const std::string& executable, const std::vector<std::string>& arguments,
                bool isDetached) {
        if (startFailure)
            throw Error(*startFailure);
        launches.push_back({executable, arguments, isDetached});
    }
};

} // namespace tidewell::testing
