#pragma once

#include "core/observe/Signal.h"

namespace tidewell {

class ShelfLayout;

// How far the strip of tiles is scrolled sideways when the tiles do not all fit. The wheel
// moves it a tile per notch, the vertical wheel too (the only one most mice have). It never
// leaves the tiles, keeps its place while the shelf stays open and starts again at the first
// tile when the shelf next opens. Main thread only.
class StripScroll {
public:
    explicit StripScroll(ShelfLayout& layout);

    // How far the first tile lies left of the strip's left edge.
    double offset() const { return offset_; }

    // The width of all tiles and of the strip that shows them, whenever either changes.
    void setExtent(double contentWidth, double viewWidth);
    // A wheel turn in eighths of a degree (120 a notch) on each axis: down and right scroll
    // towards the last tile.
    void wheel(double horizontal, double vertical);
    // Scrolls as little as brings the span of the tiles from `left` to `right` into view (its
    // start when it is wider than the strip).
    void reveal(double left, double right);

    // After each change of the offset.
    Signal<> changed;

private:
    void scrollTo(double offset);

    ShelfLayout& layout_;
    double offset_ = 0;
    double contentWidth_ = 0;
    double viewWidth_ = 0;
    Connection connection_;
};

} // namespace tidewell
