#include "support/ScopedEnvironment.h"

#include <cstdlib>

namespace tidewell::testing {

ScopedEnvironment::~ScopedEnvironment() {
    for (const auto& [name, value] : originals_) {
        if (value)
            ::setenv(name.c_str(), value->c_str(), 1);
        else
            ::unsetenv(name.c_str());
    }
}

void ScopedEnvironment::set(const std::string& name, const std::string& value) {
    remember(name);
    ::setenv(name.c_str(), value.c_str(), 1);
}

void ScopedEnvironment::unset(const std::string& name) {
    remember(name);
    ::unsetenv(name.c_str());
}

void ScopedEnvironment::remember(const std::string& name) {
    if (originals_.contains(name))
        return;
    const char* value = std::getenv(name.c_str());
    originals_[name] = value ? std::optional<std::string>(value) : std::nullopt;
}

} // namespace tidewell::testing
