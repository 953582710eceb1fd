#pragma once

#include "core/platform/Display.h"
#include "core/shelf/ShelfLayout.h"

namespace tidewell {

// Height of the notch and menu-bar strip at the top of `display`, in whole points and never
// below 28, also without a notch or with a hidden menu bar.
double topInset(const Display& display);

// The shelf's size on `display`: as wide as the display allows (its width less 64), with
// the layout's reserved slot and top inset.
Size shelfSize(const Display& display, const ShelfLayout& layout, int favoritesCount);

} // namespace tidewell
