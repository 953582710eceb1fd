#include "core/items/Color.h"

#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>

using tidewell::Color;

namespace {

Color bytes(int red, int green, int blue) {
    return Color{red / 255.0, green / 255.0, blue / 255.0};
}

} // namespace

TEST(Color, ReadsSixDigitTextInEitherCaseWithOrWithoutDecoration) {
    const Color expected = bytes(0x5E, 0x7C, 0xE2);
    EXPECT_EQ(Color::fromNotchHex("#5E7CE2"), expected);
    EXPECT_EQ(Color::fromNotchHex("5e7ce2"), expected);
    EXPECT_EQ(Color::fromNotchHex("  #5E7CE2\n"), expected);
    EXPECT_EQ(Color::fromNotchHex("0x5E7CE2"), expected);
    EXPECT_EQ(Color::fromNotchHex("#0X5e7ce2"), expected);
    EXPECT_EQ(Color::fromNotchHex("\u2192 5E7CE2 \u2190"), expected); // arrows are trimmed
    EXPECT_EQ(Color::fromNotchHex("#5E7CE2 and more"), expected);
    EXPECT_EQ(Color::fromNotchHex("\xff#5E7CE2"), expected); // a stray byte is no letter
}

TEST(Color, ReadsTheNumberWithoutShortFormsAndKeepsItsLowestSixDigits) {
    EXPECT_EQ(Color::fromNotchHex("#ABC"), bytes(0x00, 0x0A, 0xBC));
    EXPECT_EQ(Color::fromNotchHex("#FF5E7CE2"), bytes(0x5E, 0x7C, 0xE2));
    EXPECT_EQ(Color::fromNotchHex("#0000000000000000005E7CE2"), bytes(0x5E, 0x7C, 0xE2));
    // Seventeen significant digits overflow 64 bits, which saturates to all ones.
    EXPECT_EQ(Color::fromNotchHex("#10000000000000000"), bytes(0xFF, 0xFF, 0xFF));
    EXPECT_EQ(Color::fromNotchHex("#FFFFFFFFFFFFFFFF"), bytes(0xFF, 0xFF, 0xFF));
}

TEST(Color, TextWithoutLeadingDigitsIsBlack) {
    for (const char* text : {"", "#", "   ", "red", "#G12345", "0x", "\u00e95E7CE2", "\xff\xfe"})
        EXPECT_EQ(Color::fromNotchHex(text), bytes(0, 0, 0)) << text;
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
