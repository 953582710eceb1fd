#include "core/items/InternetDate.h"

#include <gtest/gtest.h>

using namespace std::chrono;
using namespace tidewell;

namespace {

Date utc(year_month_day day, hours h, minutes m, seconds s) {
    return Date(sys_days(day) + h + m + s);
}

} // namespace

TEST(InternetDate, FormatsUtcWithWholeSeconds) {
    const Date date = utc(2025y / March / 4, 18h, 7min, 41s);
    EXPECT_EQ(InternetDate::format(date), "2025-03-04T18:07:41Z");
    EXPECT_EQ(InternetDate::format(date + 999ms), "2025-03-04T18:07:41Z");
    EXPECT_EQ(InternetDate::format(Date()), "1970-01-01T00:00:00Z");
    EXPECT_EQ(InternetDate::format(Date() - 500ms), "1969-12-31T23:59:59Z");
}

TEST(InternetDate, ParsesUtcAndOffsetsToTheSameInstant) {
    const Date expected = utc(2025y / March / 4, 18h, 7min, 41s);
    EXPECT_EQ(InternetDate::parse("2025-03-04T18:07:41Z"), expected);
    EXPECT_EQ(InternetDate::parse("2025-03-04T20:07:41+02:00"), expected);
    EXPECT_EQ(InternetDate::parse("2025-03-04T12:37:41-05:30"), expected);
    EXPECT_EQ(InternetDate::parse("2025-03-04T18:07:41-00:00"), expected);
    EXPECT_EQ(InternetDate::parse("2025-03-05T00:07:41+06:00"), expected);
    EXPECT_EQ(InternetDate::parse("2024-02-29T00:00:00Z"),
              utc(2024y / February / 29, 0h, 0min, 0s));
    EXPECT_EQ(InternetDate::parse("1969-12-31T23:59:59Z"), Date() - 1s);
}

TEST(InternetDate, RejectsFractionsImpossibleDatesAndOtherText) {
    for (const char* text : {
             "2025-03-04T18:07:41.5Z",
             "2025-03-04T18:07:41.000Z",
             "2025-02-30T00:00:00Z",
             "2023-02-29T00:00:00Z",
             "2025-13-01T00:00:00Z",
             "2025-00-10T00:00:00Z",
             "2025-03-00T00:00:00Z",
             "2025-03-04T24:00:00Z",
             "2025-03-04T18:60:00Z",
             "2025-03-04T18:07:60Z",
             "2025-03-04T18:07:41",
             "2025-03-04T18:07:41z",
             "2025-03-04t18:07:41Z",
             "2025-03-04 18:07:41Z",
             "2025-03-04T18:07:41+0200",
             "2025-03-04T18:07:41+24:00",
             "2025-03-04T18:07:41+02:60",
             "2025-03-04T18:07:41ZZ",
             "2025-3-4T18:07:41Z",
             "+025-03-04T18:07:41Z",
             "2025-03-04T18:07:4aZ",
             "",
             "yesterday",
             "0001-01-01T00:00:00Z", // earlier than any stored time can be
             "9999-12-31T23:59:59Z",
         })
        EXPECT_FALSE(InternetDate::parse(text)) << text;
}

TEST(InternetDate, FormattedTextParsesBack) {
    for (const Date date :
         {utc(2025y / March / 4, 18h, 7min, 41s), utc(1999y / December / 31, 23h, 59min, 59s),
          utc(2100y / January / 1, 0h, 0min, 0s), Date() - 86399s})
        EXPECT_EQ(InternetDate::parse(InternetDate::format(date)), date);
}
