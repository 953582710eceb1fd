#pragma once

#include <map>
#include <optional>
#include <string>

namespace tidewell::testing {

// Changes environment variables for the length of a test and puts the old values back.
class ScopedEnvironment {
public:
    ScopedEnvironment() = default;
    ~ScopedEnvironment();
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

    void set(const std::string& name, const std::string& value);
    void unset(const std::string& name);

private:
    void remember(const std::string& name);

    std::map<std::string, std::optional<std::string>> originals_;
};

} // namespace tidewell::testing
