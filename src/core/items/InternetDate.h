#pragma once

#include "core/platform/Clock.h"

#include <optional>
#include <string>
#include <string_view>

namespace tidewell {

// Internet date-times with whole seconds, e.g. 2025-03-04T18:07:41Z.
namespace InternetDate {

constexpr std::size_t formattedLength = 20;

// UTC with a trailing Z; fractions of a second are dropped.
std::string format(Date date);
// The same text into a buffer of formattedLength characters, without an allocation.
void writeFormatted(Date date, char* out);
// "YYYY-MM-DDTHH:MM:SS" followed by "Z" or a "+HH:MM"/"-HH:MM" offset. A fractional part,
// an impossible date or any other text yields no value.
std::optional<Date> parse(std::string_view text);

} // namespace InternetDate
} // namespace tidewell
