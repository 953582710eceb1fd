#include "core/shelf/MergedBackground.h"

#include <gtest/gtest.h>
#include <optional>

namespace tidewell::testing {
namespace {

TEST(MergedBackground, ExpansionChoosesSizeAndLowerRadiusAppearanceChoosesFill) {
    using Fill = MergedBackground::Fill;
    constexpr Size panel{420, 96};
    constexpr Size notch{180, 32};
    const MergedBackground::Shadow glassShadow{0.22, 12, 0, 3};
    const ShelfAppearance black = ShelfAppearance::notchBlack;
    EXPECT_EQ(MergedBackground::decide(true, panel, notch, black),
              (MergedBackground{{8, 18}, panel, Fill::solidBlack, std::nullopt}));
    EXPECT_EQ(MergedBackground::decide(false, panel, notch, ShelfAppearance::warmGlass),
              (MergedBackground{{8, 8}, notch, Fill::translucentGlass, glassShadow}));
    // Negative sizes become zero, per dimension.
    EXPECT_EQ(MergedBackground::decide(true, {-5, 40}, notch, black).size, (Size{0, 40}));
    EXPECT_EQ(MergedBackground::decide(false, panel, {2, -3}, black).size, (Size{2, 0}));
}

} // namespace
} // namespace tidewell::testing
