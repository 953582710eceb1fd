#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tidewell::testing {

// One record as it appears in the items file, every value as written there.
struct StoredItem {
    std::string createdAt;
    std::optional<std::string> iconPath;
    std::string id;
    std::string initials;
    bool isFavorite = false;
    std::string lastOpenedAt;
    std::string launchCommand;
    std::string name;
    std::string path;
    std::string tintHex;
};

// The items file's text, written independently of the product's encoder: keys in
// ascending order, two-space indentation, " : " between key and value, "\/" for a slash,
// no line feed after the closing bracket.
std::string itemsFileText(const std::vector<StoredItem>& items);

// The text as the items file writes it inside a string, and with the quotes around it.
std::string jsonEscaped(std::string_view text);
std::string jsonQuoted(std::string_view text);

// The values of every string member with that key, in file order, as written (escaped)
// there; a value holding an escaped quote is not found.
std::vector<std::string> stringValues(const std::string& fileText, std::string_view key);

// Seconds since 1970 of a whole-second UTC date-time such as 2025-03-04T18:07:41Z.
long long epochSeconds(const std::string& internetDate);

// Record number `index` of a large generated file: about 530 bytes, for a folder that does
// not exist, created and opened a second after the record before it.
StoredItem generatedItem(std::size_t index);

} // namespace tidewell::testing
