#pragma once

#include "core/platform/ExecutableLocator.h"

namespace tidewell {

// Looks programs up the way the shell and execvp do: a name with a slash is a path of its
// own, any other name is searched in the folders of $PATH, read on every call.
class PathExecutableLocator : public ExecutableLocator {
public:
    bool isInstalled(const std::string& name) const override;
};

} // namespace tidewell
