#include "core/platform/FileUrl.h"

#include "core/platform/PathText.h"

#include <algorithm>

namespace tidewell::FileUrl {
namespace {

std::optional<int> hexValue(char digit) {
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'a' && digit <= 'f')
        return digit - 'a' + 10;
    if (digit >= 'A' && digit <= 'F')
        return digit - 'A' + 10;
    return std::nullopt;
}

bool isAsciiLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool isSchemeCharacter(char character) {
    return isAsciiLetter(character) || (character >= '0' && character <= '9') || character == '+' ||
           character == '-' || character == '.';
}

bool isBlankOrControl(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte <= 0x20 || byte == 0x7F;
}

// The path of a file URL's remainder after "file:": "///path", "//localhost/path" or "/path".
std::optional<std::string> localPath(std::string_view rest) {
    rest = rest.substr(0, std::min(rest.find_first_of("?#"), rest.size()));
    if (rest.starts_with("//")) {
        const std::size_t pathStart = std::min(rest.find('/', 2), rest.size());
        const std::string host = PathText::lowercasedAscii(rest.substr(2, pathStart - 2));
        if (!host.empty() && host != "localhost")
            return std::nullopt;
        rest.remove_prefix(pathStart);
    }
    if (!rest.starts_with('/'))
        return std::nullopt;
    return percentDecoded(rest);
}

} // namespace

std::optional<std::string> percentDecoded(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] != '%') {
            result += text[index];
            continue;
        }
        if (index + 2 >= text.size())
            return std::nullopt;
        const auto high = hexValue(text[index + 1]);
        const auto low = hexValue(text[index + 2]);
        if (!high || !low)
            return std::nullopt;
        result += static_cast<char>(*high * 16 + *low);
        index += 2;
    }
    return result;
}

std::optional<Url> parse(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || colon == 0 || !isAsciiLetter(text[0]) ||
        !std::all_of(text.begin(), text.begin() + colon, isSchemeCharacter) ||
        std::any_of(text.begin(), text.end(), isBlankOrControl) || !percentDecoded(text))
        return std::nullopt;
    if (PathText::lowercasedAscii(text.substr(0, colon)) != "file")
        return Url{};
    return Url{localPath(text.substr(colon + 1))};
}

} // namespace tidewell::FileUrl
