#pragma once

#include <optional>
#include <string>

namespace tidewell {

// The user's preferences: a persistent map from key to string or Boolean.
class KeyValueStore {
public:
    virtual ~KeyValueStore() = default;
    virtual std::optional<std::string> string(const std::string& key) const = 0;
    virtual std::optional<bool> boolean(const std::string& key) const = 0;
    virtual void setString(const std::string& key, const std::string& value) = 0;
    virtual void setBoolean(const std::string& key, bool value) = 0;
};

} // namespace tidewell
