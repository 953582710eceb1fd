#pragma once

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace tidewell::testing {

// Changes environment variables for the length of a test and puts the old values back.
class ScopedEnvironment {
public:
    ScopedEnvironment() = default;
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;
    ~ScopedEnvironment() {
        for (const auto& [name, value] : originals_)
            value ? ::setenv(name.c_str(), value->c_str(), 1) : ::unsetenv(name.c_str());
    }

    void set(const std::string& name, const std::string& value) {
        remember(name);
        ::setenv(name.c_str(), value.c_str(), 1);
    }
    void unset(const std::string& name) {
        remember(name);
        ::unsetenv(name.c_str());
    }

private:
    void remember(const std::string& name) {
        const char* value = std::getenv(name.c_str());
        originals_.try_emplace(name, value ? std::optional<std::string>(value) : std::nullopt);
    }

    std::map<std::string, std::optional<std::string>> originals_;
};

} // namespace tidewell::testing
