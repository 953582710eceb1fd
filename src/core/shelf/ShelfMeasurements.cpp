#include "core/shelf/ShelfMeasurements.h"

#include <algorithm>
#include <cmath>

namespace tidewell {

namespace {
constexpr double minimumTopInset = 28;
constexpr double displayWidthMargin = 64;

double heightOrZero(const Rect& area) {
    return area.isEmpty() ? 0 : area.height();
}
} // namespace

double topInset(const Display& display) {
    const double menuBarHeight = display.frame.maxY() - display.visibleFrame.maxY();
    return std::round(std::max({minimumTopInset, menuBarHeight, display.safeAreaTop,
                                heightOrZero(display.auxiliaryTopLeftArea),
                                heightOrZero(display.auxiliaryTopRightArea)}));
}

Size shelfSize(const Display& display, const ShelfLayout& layout, int favoritesCount) {
    const int slots = layout.isReservingSlot() ? 1 : 0;
    return ShelfLayout::sizeFor(favoritesCount + slots, display.frame.width() - displayWidthMargin,
                                layout.topInset());
}

} // namespace tidewell
