#pragma once

namespace tidewell {

// The panel's window reaches this many logical pixels beyond the shelf's frame on the left,
// the right and the bottom, so that the glass appearance's shadow is not cut off. The
// window's input shape keeps the margin click-through.
inline constexpr int panelShadowMargin = 16;

} // namespace tidewell
