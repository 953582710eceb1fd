#include "core/items/Color.h"

#include "core/items/Utf8Text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <optional>

namespace tidewell {

namespace {

std::optional<unsigned> hexDigitValue(char32_t c) {
    if (c >= U'0' && c <= U'9')
        return static_cast<unsigned>(c - U'0');
    if (c >= U'a' && c <= U'f')
        return static_cast<unsigned>(c - U'a' + 10);
    if (c >= U'A' && c <= U'F')
        return static_cast<unsigned>(c - U'A' + 10);
    return std::nullopt;
}

// Leading non-alphanumerics are skipped. Trailing ones need no trimming: the digits end at
// the first other character anyway.
std::uint64_t leadingHexNumber(std::u32string_view text) {
    const auto start = std::find_if(text.begin(), text.end(), Utf8Text::isAlphanumeric);
    text.remove_prefix(static_cast<std::size_t>(start - text.begin()));
    if (text.starts_with(U"0x") || text.starts_with(U"0X"))
        text.remove_prefix(2);
    constexpr std::uint64_t largest = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t value = 0;
    for (const char32_t c : text) {
        const auto digit = hexDigitValue(c);
        if (!digit)
            break;
        value = value > (largest >> 4) ? largest : (value << 4) | *digit;
    }
    return value;
}

double component(std::uint64_t number, int shift) {
    return static_cast<double>((number >> shift) & 0xFF) / 255.0;
}

int scaledComponent(double value) {
    const double clamped = std::isnan(value) ? 0.0 : std::clamp(value, 0.0, 1.0);
    return static_cast<int>(clamped * 255.0);
}

} // namespace

Color Color::fromNotchHex(std::string_view text) {
    const std::uint64_t number = leadingHexNumber(Utf8Text::decode(text));
    return Color{component(number, 16), component(number, 8), component(number, 0)};
}

std::string Color::notchHex() const {
    char text[8];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", scaledComponent(red), scaledComponent(green),
                  scaledComponent(blue));
    return text;
}

} // namespace tidewell
