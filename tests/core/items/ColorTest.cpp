#include "core/items/Color.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <limits>

using tidewell::Color;

namespace {

Color bytes(int red, int green, int blue) {
    return Color{red / 255.0, green / 255.0, blue / 255.0};
}

} // namespace

// The leading hexadecimal number, without short forms; its lowest six digits are the colour.
TEST(Color, ReadsTheLeadingNumberOfTheText) {
    const Color blue = bytes(0x5E, 0x7C, 0xE2);
    const Color white = bytes(0xFF, 0xFF, 0xFF);
    const Color black = bytes(0, 0, 0);
    const std::pair<std::string, Color> cases[] = {
        {"#5E7CE2", blue},
        {"  #5E7CE2\n", blue},
        {"0x5E7CE2", blue},
        {"\u2192 5E7CE2 \u2190", blue}, // arrows are trimmed
        {"\xff#5E7CE2", blue},          // a stray byte is no letter
        {"#ABC", bytes(0x00, 0x0A, 0xBC)},
        {"#abc", bytes(0x00, 0x0A, 0xBC)},
        {"#FF5E7CE2", blue},
        // Seventeen significant digits overflow 64 bits, which saturates to all ones.
        {"#10000000000000000", white},
        {"", black},
        {"red", black},
        {"#G12345", black},
        {"\u00e95E7CE2", black},
    };
    for (const auto& [text, color] : cases)
        EXPECT_EQ(Color::fromNotchHex(text), color) << text;
}

TEST(Color, EveryComponentValueSurvivesTextAndBack) {
    char text[8];
    for (int value = 0; value < 256; ++value) {
        for (const int shift : {16, 8, 0}) {
            std::snprintf(text, sizeof text, "#%06X", value << shift);
            EXPECT_EQ(Color::fromNotchHex(text).notchHex(), text);
        }
    }
}

TEST(Color, TextClampsAndTruncatesComponents) {
    EXPECT_EQ((Color{0.999, 0.5, 0.0}).notchHex(), "#FE7F00");
    EXPECT_EQ((Color{1.5, -0.2, 2.0}).notchHex(), "#FF00FF");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ((Color{nan, infinity, -infinity}).notchHex(), "#00FF00");
}
