#pragma once

#include "core/platform/KeyValueStore.h"

#include <map>
#include <variant>

namespace tidewell::testing {

class FakeKeyValueStore : public KeyValueStore {
public:
    std::optional<std::string> string(const std::string& key) const override {
        const auto found = values.find(key);
        if (found == values.end() || !std::holds_alternative<std::string>(found->second))
            return std::nullopt;
        return std::get<std::string>(found->second);
    }
    std::optional<bool> boolean(const std::string& key) const override {
        const auto found = values.find(key);
        if (found == values.end() || !std::holds_alternative<bool>(found->second))
            return std::nullopt;
        return std::get<bool>(found->second);
    }
    void setString(const std::string& key, const std::string& value) override {
        values[key] = value;
    }
    void setBoolean(const std::string& key, bool value) override { values[key] = value; }

    std::map<std::string, std::variant<std::string, bool>> values;
};

} // namespace tidewell::testing
