#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tidewell::PropertyList {

// The values a launch agent needs: text, Booleans and lists of text.
using Value = std::variant<std::string, bool, std::vector<std::string>>;
// Keys keep the order in which they are given.
using Dictionary = std::vector<std::pair<std::string, Value>>;

// The dictionary as an XML property list, version 1.0, tab-indented.
std::string xml(const Dictionary& dictionary);

} // namespace tidewell::PropertyList
