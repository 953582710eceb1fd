#pragma once

#include "core/settings/EnumCases.h"

namespace tidewell {

enum class ShelfAppearance { notchBlack, warmGlass };

inline constexpr std::array<EnumCase<ShelfAppearance>, 2> shelfAppearanceCases = {{
    {ShelfAppearance::notchBlack, "notchBlack", "Notch Black"},
    {ShelfAppearance::warmGlass, "warmGlass", "Warm Glass"},
}};

} // namespace tidewell
