#pragma once

#include <string>
#include <string_view>

namespace tidewell {

// An opaque sRGB colour with components from 0 to 1, and its "#RRGGBB" text.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;

    // Never fails: surrounding non-alphanumerics are trimmed, then a hexadecimal number is
    // read from the start (optional 0x, saturating at 64 bits); no digits give black.
    static Color fromNotchHex(std::string_view text);
    // Components are clamped to 0...1 (NaN counts as 0) and truncated after scaling by 255.
    std::string notchHex() const;

    bool operator==(const Color&) const = default;
};

} // namespace tidewell
