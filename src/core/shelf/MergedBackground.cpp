#include "core/shelf/MergedBackground.h"

#include "core/shelf/NotchTransition.h"

#include <algorithm>

namespace tidewell {

namespace {

constexpr double topFlare = 8;
constexpr double expandedBottomRadius = 18;
constexpr double collapsedBottomRadius = 8;
constexpr MergedBackground::Shadow glassShadow{0.22, 12, 0, 3};

Size nonNegative(Size size) {
    return {std::max(size.width, 0.0), std::max(size.height, 0.0)};
}

} // namespace

MergedBackground MergedBackground::decide(bool isBackgroundExpanded, Size expandedSize,
                                          Size collapsedSize, ShelfAppearance appearance) {
    MergedBackground background;
    background.shape = {topFlare,
                        isBackgroundExpanded ? expandedBottomRadius : collapsedBottomRadius};
    background.size = nonNegative(isBackgroundExpanded ? expandedSize : collapsedSize);
    if (appearance == ShelfAppearance::warmGlass) {
        background.fill = Fill::translucentGlass;
        background.shadow = glassShadow;
    }
    return background;
}

const Animation& MergedBackground::expansionAnimation(bool isBackgroundExpanded) {
    return isBackgroundExpanded ? NotchTransition::expand : NotchTransition::collapse;
}

const Animation& MergedBackground::resizeAnimation() {
    return NotchTransition::resize;
}

} // namespace tidewell
