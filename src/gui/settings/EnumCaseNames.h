#pragma once

#include "core/settings/EnumCases.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace tidewell {

// A stored enumeration as the settings window's pickers show it: the display names in the
// cases' order, and a case as its place in that list.

template <typename Enum, std::size_t count>
QStringList displayNames(const std::array<EnumCase<Enum>, count>& cases) {
    QStringList names;
    for (const EnumCase<Enum>& entry : cases)
        names.append(QString::fromUtf8(entry.displayName.data(),
                                       static_cast<qsizetype>(entry.displayName.size())));
    return names;
}

template <typename Enum, std::size_t count>
int caseIndex(const std::array<EnumCase<Enum>, count>& cases, Enum value) {
    return static_cast<int>(&caseOf(cases, value) - cases.data());
}

// None for a place outside the list.
template <typename Enum, std::size_t count>
std::optional<Enum> caseAt(const std::array<EnumCase<Enum>, count>& cases, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= count)
        return std::nullopt;
    return cases[static_cast<std::size_t>(index)].value;
}

} // namespace tidewell
