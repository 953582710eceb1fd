#pragma once

#include "core/platform/Error.h"

namespace tidewell {

// Why launch at login could not be set up by the launch-agent fallback.
class LaunchAgentError : public Error {
public:
    enum Case { missingExecutable };

    explicit LaunchAgentError(Case errorCase)
        : Error(description(errorCase)), errorCase_(errorCase) {}

    Case errorCase() const { return errorCase_; }

private:
    static const char* description(Case) {
        return "The packaged app could not be located for launch at login.";
    }

    Case errorCase_;
};

} // namespace tidewell
