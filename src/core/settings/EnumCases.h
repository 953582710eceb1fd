#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace tidewell {

// A stored enumeration: each case with the raw value it is stored as and the name the
// settings window shows for it, in the order the window lists them.
template <typename Enum> struct EnumCase {
    Enum value;
    std::string_view rawValue;
    std::string_view displayName;
};

template <typename Enum, std::size_t count>
constexpr const EnumCase<Enum>& caseOf(const std::array<EnumCase<Enum>, count>& cases, Enum value) {
    return *std::find_if(cases.begin(), cases.end(),
                         [value](const auto& entry) { return entry.value == value; });
}

// Exact, case-sensitive: anything else is no case, and the caller picks its default.
template <typename Enum, std::size_t count>
constexpr std::optional<Enum> caseFromRawValue(const std::array<EnumCase<Enum>, count>& cases,
                                               std::string_view rawValue) {
    const auto found = std::find_if(cases.begin(), cases.end(), [rawValue](const auto& entry) {
        return entry.rawValue == rawValue;
    });
    return found == cases.end() ? std::nullopt : std::optional(found->value);
}

} // namespace tidewell
