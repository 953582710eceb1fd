#pragma once

#include <string>

namespace tidewell {

// Which programs can be started by name.
class ExecutableLocator {
public:
    virtual ~ExecutableLocator() = default;
    // True when an executable file of that name is found on the search path.
    virtual bool isInstalled(const std::string& name) const = 0;
};

} // namespace tidewell
