#pragma once

#include "core/platform/ExecutableLocator.h"

#include <set>
#include <string>

namespace tidewell::testing {

// Answers from a set of installed program names, and counts the questions.
class FakeExecutableLocator : public ExecutableLocator {
public:
    bool isInstalled(const std::string& name) const override {
        ++lookups;
        return installed.contains(name);
    }

    std::set<std::string> installed;
    mutable int lookups = 0;
};

} // namespace tidewell::testing
