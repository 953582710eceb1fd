#pragma once

#include <string>
#include <string_view>

namespace tidewell::Utf8 {

bool isValid(std::string_view text);
// Case-folded and canonically composed, so that two texts a person reads as the same
// word, whatever their letter case, compare equal. Invalid UTF-8 comes back unchanged.
std::string caseFolded(std::string_view text);
// The text with every byte that is not part of valid UTF-8 written as \xHH, for messages.
std::string escapingInvalidBytes(std::string_view text);

} // namespace tidewell::Utf8
