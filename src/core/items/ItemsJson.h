#pragma once

#include "core/items/NotchItem.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tidewell {

// The items file's JSON form: an array of records.
namespace ItemsJson {

// Keys sorted, two-space indentation, " : " between key and value, "/" escaped, dates as
// whole-second UTC, absent optionals omitted. No trailing line feed.
std::string encode(const std::vector<NotchItem>& items);
// The same text into the given string, whose memory is reused: a large file is written
// into the buffer its earlier text was read into, with no fresh pages.
void encode(const std::vector<NotchItem>& items, std::string& into);
// Strict: a missing, null or mistyped required key, a malformed id or date, or a top level
// that is no array fails the whole decode. Unknown keys are ignored.
std::optional<std::vector<NotchItem>> decode(std::string_view json);

} // namespace ItemsJson
} // namespace tidewell
