#include "core/items/InternetDate.h"

#include <gtest/gtest.h>

using namespace std::chrono;
using namespace tidewell;

namespace {

const Date march4 = Date(sys_days(2025y / March / 4) + 18h + 7min + 41s);

} // namespace

TEST(InternetDate, FormatsUtcInWholeSecondsAndParsesOffsetsToTheSameInstant) {
    EXPECT_EQ(InternetDate::format(march4 + 999ms), "2025-03-04T18:07:41Z");
    EXPECT_EQ(InternetDate::format(Date() - 500ms), "1969-12-31T23:59:59Z");
    for (const char* text : {"2025-03-04T18:07:41Z", "2025-03-04T12:37:41-05:30",
                             "2025-03-05T00:07:41+06:00", "2025-03-04T18:07:41-00:00"})
        EXPECT_EQ(InternetDate::parse(text), march4) << text;
    EXPECT_EQ(InternetDate::parse("2024-02-29T00:00:00Z"), Date(sys_days(2024y / February / 29)));
    EXPECT_EQ(InternetDate::parse("1969-12-31T23:59:59Z"), Date() - 1s);
}

TEST(InternetDate, RejectsFractionsImpossibleDatesAndOtherText) {
    for (const char* text : {
             "2025-03-04T18:07:41.000Z", "2023-02-29T00:00:00Z", "2025-03-04T24:00:00Z",
             "2025-03-04T18:07:60Z", "2025-03-04T18:07:41", "2025-03-04T18:07:41z",
             "2025-03-04 18:07:41Z", "2025-03-04T18:07:41+0200", "2025-03-04T18:07:41+24:00",
             "2025-03-04T18:07:41ZZ", "2025-3-4T18:07:41Z",
             "0001-01-01T00:00:00Z", // earlier than any stored time can be
         })
        EXPECT_FALSE(InternetDate::parse(text)) << text;
}
