#include "core/items/NotchItem.h"

#include <gtest/gtest.h>

using tidewell::NotchItem;

TEST(NotchItemInitials, TakeTheFirstLettersOfTheFirstTwoWords) {
    EXPECT_EQ(NotchItem::makeInitials("myProject"), "MP");
    EXPECT_EQ(NotchItem::makeInitials("web-dashboard"), "WD");
    EXPECT_EQ(NotchItem::makeInitials("iOS"), "IO");
    EXPECT_EQ(NotchItem::makeInitials("Project2Go"), "PG");
    EXPECT_EQ(NotchItem::makeInitials("my big project"), "MB");
    EXPECT_EQ(NotchItem::makeInitials("  spaced_out  "), "SO");
}

TEST(NotchItemInitials, OneWordGivesItsCapitalsOrItsFirstTwoCharacters) {
    EXPECT_EQ(NotchItem::makeInitials("Studio"), "ST");
    EXPECT_EQ(NotchItem::makeInitials("ABC"), "AB");
    EXPECT_EQ(NotchItem::makeInitials("x"), "X");
    EXPECT_EQ(NotchItem::makeInitials("42"), "42");
    EXPECT_EQ(NotchItem::makeInitials(""), "");
    EXPECT_EQ(NotchItem::makeInitials("---"), "--");
    EXPECT_EQ(NotchItem::makeInitials("."), ".");
}

TEST(NotchItemInitials, HandleLettersOfEveryScript) {
    EXPECT_EQ(NotchItem::makeInitials("\u00e9lan vital"), "\u00c9V");
    EXPECT_EQ(NotchItem::makeInitials("\u00fcber"), "\u00dcB");
    // A combining accent stays with its letter and does not split the word.
    EXPECT_EQ(NotchItem::makeInitials("e\u0301cole"), "E\u0301C");
    EXPECT_EQ(NotchItem::makeInitials("cafe\u0301 noir"), "CN");
    EXPECT_EQ(NotchItem::makeInitials("\u041f\u0440\u0438\u0432\u0435\u0442 \u043c\u0438\u0440"),
              "\u041f\u041c");
    EXPECT_EQ(NotchItem::makeInitials("\u0391\u0392\u0393"), "\u0391\u0392");
    EXPECT_EQ(NotchItem::makeInitials("\u6771\u4eac\u90fd"), "\u6771\u4eac");
}

TEST(NotchItemInitials, SymbolsSeparateWordsAndAreKeptWholeWhenAlone) {
    EXPECT_EQ(NotchItem::makeInitials("rocket\U0001F680launch"), "RL");
    EXPECT_EQ(NotchItem::makeInitials("\U0001F680\U0001F680\U0001F680"), "\U0001F680\U0001F680");
    // Flags are pairs of regional indicators: one character each.
    EXPECT_EQ(
        NotchItem::makeInitials("\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7\U0001F1EE\U0001F1F9"),
        "\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7");
}

TEST(NotchItemInitials, InvalidUtf8GivesValidText) {
    EXPECT_EQ(NotchItem::makeInitials("\xff"
                                      "ab"),
              "AB");
    EXPECT_EQ(NotchItem::makeInitials("\xc3"), "\ufffd");
    EXPECT_EQ(NotchItem::makeInitials("\xed\xa0\x80x"), "X"); // an encoded surrogate
}

TEST(NotchItemTint, HashesTheNameIntoThePalette) {
    EXPECT_EQ(NotchItem::makeTint(""), "#4E91A8");
    EXPECT_EQ(NotchItem::makeTint("Studio"), "#4E91A8");
    EXPECT_EQ(NotchItem::makeTint("web"), "#A45CC2");
    // The hash of this name wraps past 64 bits.
    EXPECT_EQ(NotchItem::makeTint("backend-service"), "#CD5D7D");
}
