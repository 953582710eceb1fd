#include "core/shelf/StripScroll.h"

#include "core/shelf/ShelfLayout.h"

#include <algorithm>

namespace tidewell {

namespace {
constexpr double wheelNotch = 120;
} // namespace

StripScroll::StripScroll(ShelfLayout& layout)
    : layout_(layout), connection_(layout.changed.connect([this] {
          // Once the shelf has shrunk into the notch, the next opening starts at the first tile.
          if (!layout_.isBackgroundExpanded())
              scrollTo(0);
      })) {}

void StripScroll::setExtent(double contentWidth, double viewWidth) {
    contentWidth_ = contentWidth;
    viewWidth_ = viewWidth;
    scrollTo(offset_);
}

void StripScroll::wheel(double horizontal, double vertical) {
    scrollTo(offset_ - (horizontal + vertical) / wheelNotch * ShelfLayout::tilePitch);
}

void StripScroll::reveal(double left, double right) {
    if (right > offset_ + viewWidth_)
        scrollTo(right - viewWidth_);
    if (left < offset_)
        scrollTo(left);
}

void StripScroll::scrollTo(double offset) {
    const double clamped = std::clamp(offset, 0.0, std::max(0.0, contentWidth_ - viewWidth_));
    if (clamped == offset_)
        return;
    offset_ = clamped;
    changed.emit();
}

} // namespace tidewell
