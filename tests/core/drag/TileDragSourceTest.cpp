#include "core/drag/TileDragSource.h"

#include "core/drag/ShelfItemMove.h"

#include <gtest/gtest.h>

namespace tidewell::testing {

TEST(TileDragSourceTest, APressTravellingMoreThanThreePointsDragsInsteadOfClicking) {
    TileDragSource source;
    source.press({10, 10});
    EXPECT_FALSE(source.drag({13, 10}));
    EXPECT_TRUE(source.release());

    source.press({10, 10});
    EXPECT_TRUE(source.drag({13.1, 10}));
    EXPECT_FALSE(source.drag({40, 10})); // the session runs already
    EXPECT_FALSE(source.release());
    EXPECT_FALSE(source.drag({50, 10})); // no press any more

    // The end of the session lets the next press click again. Released 60 points or more
    // from the window, or without one, the tile was dropped outside.
    using enum TileDragSource::SessionEnd;
    const Rect window{{100, 100}, {400, 120}};
    for (const auto& [point, frame, expected] :
         {std::tuple{Point{300, 279.9}, std::optional(window), endedInside},
          std::tuple{Point{300, 280}, std::optional(window), droppedOutside},
          std::tuple{Point{0, 0}, std::optional<Rect>(), droppedOutside}})
        EXPECT_EQ(source.sessionEnded(false, point, frame), expected) << point.y;
    source.press({10, 10});
    EXPECT_TRUE(source.release());
}

TEST(ShelfItemMoveTest, WireFormIsOneCompactMemberWithTheUpperCaseIdAndNothingElseDecodes) {
    const std::string upper = "0F8FAD5B-D9CB-469F-A165-70867728950E";
    const ShelfItemMove move{*Uuid::parse("0f8fad5b-d9cb-469f-a165-70867728950e")};
    EXPECT_EQ(move.encoded(), R"({"id":")" + upper + R"("})");
    EXPECT_EQ(ShelfItemMove::decoded(R"( { "id" : "0f8fad5b-d9cb-469f-a165-70867728950e" } )")->id,
              move.id);
    for (const std::string& bytes :
         {R"({"id":")" + upper + R"(","name":"A"})", R"({"identifier":")" + upper + R"("})",
          std::string(R"({"id":"0F8FAD5B-D9CB-469F-A165"})"), "[\"" + upper + "\"]"})
        EXPECT_FALSE(ShelfItemMove::decoded(bytes)) << bytes;
}

} // namespace tidewell::testing
