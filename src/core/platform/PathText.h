#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tidewell {

// Path text as the user and the items file see it: purely lexical, nothing is looked up.
namespace PathText {

// No "." components, ".." removed together with the component before it, no repeated or
// trailing slash. A ".." at the root stays at the root.
std::string standardized(std::string_view path);
// Already in the form above: most stored paths are, and need no rebuilding.
bool isStandardized(std::string_view path);
// The path itself when it begins with "/", else the path appended to the directory.
std::string absolute(std::string_view path, std::string_view directory);
// "~" and "~/rest" are taken from the home folder; "~user" is left as it is.
std::string expandingTilde(std::string_view path, std::string_view home);
// The last component of a standardised path ("" for "/").
std::string lastComponent(std::string_view path);
// The text after the last dot of the last component, "" when there is none or the
// component begins with its only dot.
std::string extension(std::string_view path);
std::string lowercasedAscii(std::string_view text);
// The parts between separators, the empty ones before, after and between them included: the
// components of a path, or the folders of a colon-separated search path.
std::vector<std::string_view> split(std::string_view text, char separator);

} // namespace PathText
} // namespace tidewell
