#include "core/items/Uuid.h"

#include <gtest/gtest.h>

using tidewell::Uuid;

TEST(Uuid, ParsesOnlyCanonicalTextOfEitherCaseAndPrintsUpperCase) {
    const auto lower = Uuid::parse("3f2504e0-4f89-11d3-9a0c-0305e82c3301");
    ASSERT_TRUE(lower);
    EXPECT_EQ(lower->text(), "3F2504E0-4F89-11D3-9A0C-0305E82C3301");
    EXPECT_EQ(Uuid::parse("3F2504E0-4F89-11D3-9A0C-0305E82C3301"), lower);
    for (const char* text : {
             "3F2504E0-4F89-11D3-9A0C-0305E82C33011",  // one digit long
             "{3F2504E0-4F89-11D3-9A0C-0305E82C3301}", // braces
             "3F2504E0-4F8911D3-9A0C-0305E82C3301-",   // hyphen moved
             "3F2504E0-4F89-11D3-9A0C-0305E82C330G",   // not hexadecimal
             "+F2504E0-4F89-11D3-9A0C-0305E82C3301",   // sign
         })
        EXPECT_FALSE(Uuid::parse(text)) << text;
}

TEST(Uuid, RandomIdentifiersAreVersionFourAndDistinct) {
    const Uuid first = Uuid::random();
    EXPECT_NE(first, Uuid::random());
    const std::string text = first.text();
    EXPECT_EQ(text[14], '4') << text;
    EXPECT_NE(std::string("89AB").find(text[19]), std::string::npos) << text;
    EXPECT_EQ(Uuid::parse(text), first);
}
