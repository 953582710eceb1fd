#include "core/items/Utf8Text.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utf8proc.h>

namespace tidewell::Utf8Text {

namespace {

constexpr char32_t replacementCharacter = 0xFFFD;

// Length of the valid UTF-8 character at the start of the text, or 0 when it is invalid.
std::size_t validCharacterLength(std::string_view text) {
    utf8proc_int32_t codePoint = 0;
    const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                         static_cast<utf8proc_ssize_t>(text.size()), &codePoint);
    return length > 0 ? static_cast<std::size_t>(length) : 0;
}

} // namespace

std::u32string decode(std::string_view text) {
    std::u32string codePoints;
    codePoints.reserve(text.size());
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
    std::size_t offset = 0;
    while (offset < text.size()) {
        utf8proc_int32_t codePoint = 0;
        const auto length = utf8proc_iterate(
            bytes + offset, static_cast<utf8proc_ssize_t>(text.size() - offset), &codePoint);
        if (length <= 0) {
            codePoints.push_back(replacementCharacter);
            offset += 1;
            continue;
        }
        codePoints.push_back(static_cast<char32_t>(codePoint));
        offset += static_cast<std::size_t>(length);
    }
    return codePoints;
}

std::string encode(std::u32string_view codePoints) {
    std::string text;
    text.reserve(codePoints.size());
    utf8proc_uint8_t buffer[4];
    for (const char32_t codePoint : codePoints) {
        const auto length = utf8proc_encode_char(static_cast<utf8proc_int32_t>(codePoint), buffer);
        text.append(reinterpret_cast<const char*>(buffer), static_cast<std::size_t>(length));
    }
    return text;
}

bool isAlphanumeric(char32_t codePoint) {
    switch (utf8proc_category(static_cast<utf8proc_int32_t>(codePoint))) {
    case UTF8PROC_CATEGORY_LU:
    case UTF8PROC_CATEGORY_LL:
    case UTF8PROC_CATEGORY_LT:
    case UTF8PROC_CATEGORY_LM:
    case UTF8PROC_CATEGORY_LO:
    case UTF8PROC_CATEGORY_MN:
    case UTF8PROC_CATEGORY_MC:
    case UTF8PROC_CATEGORY_ME:
    case UTF8PROC_CATEGORY_ND:
    case UTF8PROC_CATEGORY_NL:
    case UTF8PROC_CATEGORY_NO:
        return true;
    default:
        return false;
    }
}

bool isValid(std::string_view text) {
    constexpr std::uint64_t highBits = 0x8080808080808080;
    while (!text.empty()) {
        // Stored texts are mostly ASCII: eight bytes at a time.
        if (text.size() >= sizeof(std::uint64_t)) {
            std::uint64_t word = 0;
            std::memcpy(&word, text.data(), sizeof word);
            if ((word & highBits) == 0) {
                text.remove_prefix(sizeof word);
                continue;
            }
        }
        if (static_cast<unsigned char>(text.front()) < 0x80) {
            text.remove_prefix(1);
            continue;
        }
        const std::size_t length = validCharacterLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string escapingInvalidBytes(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        std::size_t length = validCharacterLength(text);
        if (length > 0) {
            result.append(text.substr(0, length));
        } else {
            char escaped[5];
            std::snprintf(escaped, sizeof escaped, "\\x%02X", static_cast<unsigned char>(text[0]));
            result += escaped;
            length = 1;
        }
        text.remove_prefix(length);
    }
    return result;
}

std::string caseFolded(std::string_view text) {
    utf8proc_uint8_t* folded = nullptr;
    const auto length = utf8proc_map(
        reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
        static_cast<utf8proc_ssize_t>(text.size()), &folded,
        static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE | UTF8PROC_CASEFOLD));
    if (length < 0)
        return std::string(text);
    std::string result(reinterpret_cast<const char*>(folded), static_cast<std::size_t>(length));
    std::free(folded);
    return result;
}

} // namespace tidewell::Utf8Text
