#include "core/items/NotchItem.h"

#include <gtest/gtest.h>

using tidewell::NotchItem;

TEST(NotchItem, InitialsAreTheFirstLettersOfTwoWordsOrTheStartOfOne) {
    const std::pair<std::string, std::string> cases[] = {
        {"myProject", "MP"},
        {"jazzZone", "JZ"},
        {"myApp", "MA"},
        {"caf\u00e9Bar", "CA"},
        {"iOS", "IO"},
        {"  spaced_out  ", "SO"},
        {"Studio", "ST"},
        {"42", "42"},
        {"", ""},
        {"\u00e9lan vital", "\u00c9V"},
        // A combining accent stays with its letter and does not split the word.
        {"e\u0301cole", "E\u0301C"},
        {"cafe\u0301 noir", "CN"},
        {"\u041f\u0440\u0438\u0432\u0435\u0442 \u043c\u0438\u0440", "\u041f\u041c"},
        {"\u6771\u4eac\u90fd", "\u6771\u4eac"},
        // Symbols separate words and are kept whole when alone; a flag is one character.
        {"rocket\U0001F680launch", "RL"},
        {"\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7\U0001F1EE\U0001F1F9",
         "\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7"},
        // Invalid UTF-8 gives valid text.
        {"\xff"
         "ab",
         "AB"},
        {"\xed\xa0\x80x", "X"}, // an encoded surrogate
    };
    for (const auto& [name, initials] : cases)
        EXPECT_EQ(NotchItem::makeInitials(name), initials) << name;
}
