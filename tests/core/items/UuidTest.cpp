#include "core/items/Uuid.h"

#include <gtest/gtest.h>

using tidewell::Uuid;

TEST(Uuid, ParsesCanonicalTextOfEitherCaseAndPrintsUpperCase) {
    const auto upper = Uuid::parse("3F2504E0-4F89-11D3-9A0C-0305E82C3301");
    const auto lower = Uuid::parse("3f2504e0-4f89-11d3-9a0c-0305e82c3301");
    ASSERT_TRUE(upper);
    ASSERT_TRUE(lower);
    EXPECT_EQ(*upper, *lower);
    EXPECT_EQ(lower->text(), "3F2504E0-4F89-11D3-9A0C-0305E82C3301");
    EXPECT_EQ(Uuid().text(), "00000000-0000-0000-0000-000000000000");
    EXPECT_NE(*upper, Uuid());
}

TEST(Uuid, RejectsEveryOtherForm) {
    for (const char* text : {
             "",
             "3F2504E0-4F89-11D3-9A0C-0305E82C330",    // one digit short
             "3F2504E0-4F89-11D3-9A0C-0305E82C33011",  // one digit long
             "{3F2504E0-4F89-11D3-9A0C-0305E82C3301}", // braces
             "3F2504E04F8911D39A0C0305E82C3301",       // no hyphens
             "3F2504E0-4F8911D3-9A0C-0305E82C3301-",   // hyphen moved
             "3F2504E0-4F89-11D3-9A0C-0305E82C330G",   // not hexadecimal
             "3F2504E0_4F89_11D3_9A0C_0305E82C3301",   // other separator
             " 3F2504E0-4F89-11D3-9A0C-0305E82C330",   // leading space
             "+F2504E0-4F89-11D3-9A0C-0305E82C3301",   // sign
         })
        EXPECT_FALSE(Uuid::parse(text)) << text;
}

TEST(Uuid, RandomIdentifiersAreVersionFourAndDistinct) {
    const Uuid first = Uuid::random();
    const Uuid second = Uuid::random();
    EXPECT_NE(first, second);
    for (const Uuid& uuid : {first, second}) {
        const std::string text = uuid.text();
        EXPECT_EQ(text[14], '4') << text;
        EXPECT_NE(std::string("89AB").find(text[19]), std::string::npos) << text;
        EXPECT_EQ(Uuid::parse(text), uuid);
    }
}
