#include "core/items/InternetDate.h"

namespace tidewell::InternetDate {

namespace {

using namespace std::chrono;

constexpr std::size_t dateTimeLength = 19; // YYYY-MM-DDTHH:MM:SS
constexpr std::size_t offsetLength = 6;    // +HH:MM

// Reads a fixed-width run of ASCII digits; anything else yields no value.
std::optional<int> digitsAt(std::string_view text, std::size_t position, std::size_t count) {
    int value = 0;
    for (std::size_t index = position; index < position + count; ++index) {
        const char c = text[index];
        if (c < '0' || c > '9')
            return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

// Fills a fixed-width field of zeros with a non-negative number.
void writeDigits(char* text, std::size_t position, std::size_t count, int value) {
    for (std::size_t index = position + count; index > position; value /= 10)
        text[--index] = static_cast<char>('0' + value % 10);
}

bool hasSeparators(std::string_view text) {
    return text[4] == '-' && text[7] == '-' && text[10] == 'T' && text[13] == ':' &&
           text[16] == ':';
}

std::optional<sys_seconds> localDateTime(std::string_view text) {
    if (!hasSeparators(text))
        return std::nullopt;
    const auto year = digitsAt(text, 0, 4);
    const auto month = digitsAt(text, 5, 2);
    const auto day = digitsAt(text, 8, 2);
    const auto hour = digitsAt(text, 11, 2);
    const auto minute = digitsAt(text, 14, 2);
    const auto second = digitsAt(text, 17, 2);
    if (!year || !month || !day || !hour || !minute || !second)
        return std::nullopt;
    const year_month_day date{std::chrono::year(*year),
                              std::chrono::month(static_cast<unsigned>(*month)),
                              std::chrono::day(static_cast<unsigned>(*day))};
    if (!date.ok() || *hour > 23 || *minute > 59 || *second > 59)
        return std::nullopt;
    return sys_days(date) + hours(*hour) + minutes(*minute) + seconds(*second);
}

// "Z" or "+HH:MM"/"-HH:MM": how far the written time is ahead of UTC.
std::optional<seconds> offsetFromUtc(std::string_view suffix) {
    if (suffix == "Z")
        return seconds(0);
    if (suffix.size() != offsetLength || (suffix[0] != '+' && suffix[0] != '-') || suffix[3] != ':')
        return std::nullopt;
    const auto hour = digitsAt(suffix, 1, 2);
    const auto minute = digitsAt(suffix, 4, 2);
    if (!hour || !minute || *hour > 23 || *minute > 59)
        return std::nullopt;
    const seconds magnitude = hours(*hour) + minutes(*minute);
    return suffix[0] == '+' ? magnitude : -magnitude;
}

// Only times that a Date holds are accepted, so that every parsed time can be written back.
bool isRepresentable(sys_seconds time) {
    return time >= ceil<seconds>(Date::min()) && time <= floor<seconds>(Date::max());
}

} // namespace

// A Date spans the years 1677 to 2262, so the year always takes four digits.
std::string format(Date date) {
    std::string text(formattedLength, ' ');
    writeFormatted(date, text.data());
    return text;
}

void writeFormatted(Date date, char* text) {
    const auto time = floor<seconds>(date);
    const auto day = floor<days>(time);
    const year_month_day calendarDate(day);
    const hh_mm_ss clockTime(time - day);
    std::char_traits<char>::copy(text, "0000-00-00T00:00:00Z", formattedLength);
    writeDigits(text, 0, 4, static_cast<int>(calendarDate.year()));
    writeDigits(text, 5, 2, static_cast<int>(static_cast<unsigned>(calendarDate.month())));
    writeDigits(text, 8, 2, static_cast<int>(static_cast<unsigned>(calendarDate.day())));
    writeDigits(text, 11, 2, static_cast<int>(clockTime.hours().count()));
    writeDigits(text, 14, 2, static_cast<int>(clockTime.minutes().count()));
    writeDigits(text, 17, 2, static_cast<int>(clockTime.seconds().count()));
}

std::optional<Date> parse(std::string_view text) {
    if (text.size() < dateTimeLength)
        return std::nullopt;
    const auto local = localDateTime(text.substr(0, dateTimeLength));
    const auto offset = offsetFromUtc(text.substr(dateTimeLength));
    if (!local || !offset)
        return std::nullopt;
    const sys_seconds utc = *local - *offset;
    if (!isRepresentable(utc))
        return std::nullopt;
    return time_point_cast<Date::duration>(utc);
}

} // namespace tidewell::InternetDate
