#pragma once

#include "core/platform/ExecutableLocator.h"

#include <set>
#include <string>

namespace tidewell::testing {

// Answers from a set of installed program names.
class FakeExecutableLocator : public ExecutableLocator {
public:
    bool isInstalled(const std::string& name) const override { return installed.contains(name); }

    std::set<std::string> installed;
};

} // namespace tidewell::testing
