#include "core/drag/ShelfItemMove.h"

#include <gtest/gtest.h>

namespace tidewell::testing {
namespace {

constexpr std::string_view idText = "0F8FAD5B-D9CB-469F-A165-70867728950E";

TEST(ShelfItemMoveTest, WireFormIsOneCompactMemberWithTheUpperCaseId) {
    const ShelfItemMove move{*Uuid::parse("0f8fad5b-d9cb-469f-a165-70867728950e")};
    EXPECT_EQ(move.encoded(), R"({"id":")" + std::string(idText) + R"("})");
    EXPECT_EQ(ShelfItemMove::decoded(move.encoded())->id, move.id);
    EXPECT_EQ(ShelfItemMove::decoded(R"( { "id" : "0f8fad5b-d9cb-469f-a165-70867728950e" } )")->id,
              move.id);
}

TEST(ShelfItemMoveTest, DecodingRefusesAnythingButASingleIdMember) {
    for (const std::string bytes : {
             R"({"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"A"})",
             R"({"identifier":"0F8FAD5B-D9CB-469F-A165-70867728950E"})",
             R"({"id":"0F8FAD5B-D9CB-469F-A165"})",
             R"(["0F8FAD5B-D9CB-469F-A165-70867728950E"])",
         })
        EXPECT_FALSE(ShelfItemMove::decoded(bytes)) << bytes;
}

} // namespace
} // namespace tidewell::testing
