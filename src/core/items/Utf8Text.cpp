#include "core/items/Utf8Text.h"

#include <utf8proc.h>

namespace tidewell::Utf8Text {

namespace {

constexpr char32_t replacementCharacter = 0xFFFD;

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

} // namespace tidewell::Utf8Text
