#pragma once

#include "core/platform/KeyValueStore.h"

#include <map>
#include <variant>

namespace tidewell::testing {

class FakeKeyValueStore : public KeyValueStore {
public:
    std::optional<std::string> string(const std::string& key) const override {
        return value<std::string>(key);
    }
    std::optional<bool> boolean(const std::string& key) const override { return value<bool>(key); }
    void setString(const std::string& key, const std::string& value) override {
        values[key] = value;
    }
    void setBoolean(const std::string& key, bool value) override { values[key] = value; }

    std::map<std::string, std::variant<std::string, bool>> values;

private:
    // None when the key is missing or holds the other type.
    template <typename T> std::optional<T> value(const std::string& key) const {
        const auto found = values.find(key);
        const T* held = found == values.end() ? nullptr : std::get_if<T>(&found->second);
        return held ? std::optional(*held) : std::nullopt;
    }
};

} // namespace tidewell::testing
