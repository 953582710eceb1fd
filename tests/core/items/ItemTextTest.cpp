#include "core/items/Color.h"
#include "core/items/InternetDate.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <limits>

using namespace std::chrono;
using namespace tidewell;

namespace {

Color bytes(int red, int green, int blue) {
    return Color{red / 255.0, green / 255.0, blue / 255.0};
}

const Date march4 = Date(sys_days(2025y / March / 4) + 18h + 7min + 41s);

} // namespace

// The leading hexadecimal number, without short forms; its lowest six digits are the colour.
TEST(Color, ReadsTheLeadingNumberAndWritesClampedComponents) {
    const Color blue = bytes(0x5E, 0x7C, 0xE2);
    const std::pair<std::string, Color> cases[] = {
        {"  #5E7CE2\n", blue},
        {"0x5E7CE2", blue},
        {"\u2192 5E7CE2 \u2190", blue}, // arrows are trimmed
        {"\xff#5E7CE2", blue},          // a stray byte is no letter
        {"#fAaBc", bytes(0x0F, 0xAA, 0xBC)},
        {"#FF5E7CE2", blue},
        // Seventeen significant digits overflow 64 bits, which saturates to all ones.
        {"#10000000000000000", bytes(0xFF, 0xFF, 0xFF)},
        {"", Color{}},
        {"red", Color{}},
        {"#G12345", Color{}},
        {"\u00e95E7CE2", Color{}},
    };
    for (const auto& [text, color] : cases)
        EXPECT_EQ(Color::fromNotchHex(text), color) << text;
    char text[8];
    for (int value = 0; value < 256; ++value)
        for (const int shift : {16, 8, 0}) {
            std::snprintf(text, sizeof text, "#%06X", value << shift);
            EXPECT_EQ(Color::fromNotchHex(text).notchHex(), text);
        }
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ((Color{0.999, 0.5, 0.0}).notchHex(), "#FE7F00");
    EXPECT_EQ((Color{1.5, -0.2, 2.0}).notchHex(), "#FF00FF");
    EXPECT_EQ((Color{nan, infinity, -infinity}).notchHex(), "#00FF00");
}

TEST(InternetDate, FormatsUtcInWholeSecondsAndParsesOffsetsToTheSameInstant) {
    EXPECT_EQ(InternetDate::format(march4 + 999ms), "2025-03-04T18:07:41Z");
    EXPECT_EQ(InternetDate::format(Date() - 500ms), "1969-12-31T23:59:59Z");
    for (const char* text : {"2025-03-04T18:07:41Z", "2025-03-04T12:37:41-05:30",
                             "2025-03-05T00:07:41+06:00", "2025-03-04T18:07:41-00:00"})
        EXPECT_EQ(InternetDate::parse(text), march4) << text;
    EXPECT_EQ(InternetDate::parse("2024-02-29T00:00:00Z"), Date(sys_days(2024y / February / 29)));
    EXPECT_EQ(InternetDate::parse("1969-12-31T23:59:59Z"), Date() - 1s);
    for (const char* text : {
             "2025-03-04T18:07:41.000Z", "2023-02-29T00:00:00Z", "2025-03-04T24:00:00Z",
             "2025-03-04T18:07:60Z", "2025-03-04T18:07:41", "2025-03-04T18:07:41z",
             "2025-03-04 18:07:41Z", "2025-03-04T18:07:41+0200", "2025-03-04T18:07:41+24:00",
             "2025-03-04T18:07:41ZZ", "2025-3-4T18:07:41Z", "2025-03-04T1/:07:41Z",
             "0001-01-01T00:00:00Z", // earlier than any stored time can be
         })
        EXPECT_FALSE(InternetDate::parse(text)) << text;
}
