#pragma once

#include <string>
#include <string_view>

namespace tidewell {

// Code points of UTF-8 text, for the few places that look at characters rather than bytes.
namespace Utf8Text {

// A byte that does not start a valid sequence reads as U+FFFD, so any input is usable.
std::u32string decode(std::string_view text);
std::string encode(std::u32string_view codePoints);
// Letters, marks and numbers of every script.
bool isAlphanumeric(char32_t codePoint);

bool isValid(std::string_view text);
// The text with every byte that is not part of valid UTF-8 written as \xHH, for messages.
std::string escapingInvalidBytes(std::string_view text);
// Case-folded and canonically composed, so that two texts a person reads as the same
// word, whatever their letter case, compare equal. Invalid UTF-8 comes back unchanged.
std::string caseFolded(std::string_view text);

} // namespace Utf8Text
} // namespace tidewell
