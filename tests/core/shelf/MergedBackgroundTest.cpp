#include "core/shelf/MergedBackground.h"

#include "core/shelf/NotchTransition.h"

#include <gtest/gtest.h>
#include <optional>

namespace tidewell::testing {
namespace {

constexpr Size panelSize{420, 96};
constexpr Size notchSize{180, 32};
const MergedBackground::Shadow glassShadow{0.22, 12, 0, 3};

TEST(MergedBackground, ExpansionChoosesSizeAndLowerRadiusAppearanceChoosesFill) {
    using Fill = MergedBackground::Fill;
    struct Case {
        bool expanded;
        ShelfAppearance appearance;
        MergedBackground expected;
    };
    const Case cases[] = {
        {true, ShelfAppearance::notchBlack, {{8, 18}, panelSize, Fill::solidBlack, std::nullopt}},
        {false, ShelfAppearance::notchBlack, {{8, 8}, notchSize, Fill::solidBlack, std::nullopt}},
        {true,
         ShelfAppearance::warmGlass,
         {{8, 18}, panelSize, Fill::translucentGlass, glassShadow}},
        {false,
         ShelfAppearance::warmGlass,
         {{8, 8}, notchSize, Fill::translucentGlass, glassShadow}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(MergedBackground::decide(c.expanded, panelSize, notchSize, c.appearance),
                  c.expected)
            << "expanded " << c.expanded << ", glass "
            << (c.appearance == ShelfAppearance::warmGlass);
    }
}

TEST(MergedBackground, NegativeSizesBecomeZeroPerDimension) {
    const ShelfAppearance black = ShelfAppearance::notchBlack;
    EXPECT_EQ(MergedBackground::decide(true, {-5, 40}, notchSize, black).size, (Size{0, 40}));
    EXPECT_EQ(MergedBackground::decide(true, {300, -1}, notchSize, black).size, (Size{300, 0}));
    EXPECT_EQ(MergedBackground::decide(false, panelSize, {-2, -3}, black).size, (Size{0, 0}));
}

TEST(MergedBackground, AnimationFollowsTheNewExpansionAndSizeChanges) {
    EXPECT_EQ(&MergedBackground::expansionAnimation(true), &NotchTransition::expand);
    EXPECT_EQ(&MergedBackground::expansionAnimation(false), &NotchTransition::collapse);
    EXPECT_EQ(&MergedBackground::resizeAnimation(), &NotchTransition::resize);
}

} // namespace
} // namespace tidewell::testing
