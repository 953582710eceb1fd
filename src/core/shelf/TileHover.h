#pragma once

#include "core/shelf/Animation.h"

namespace tidewell::TileHover {

// The tiles' hover colours fade in and out with this.
inline constexpr Animation fade{Animation::Curve::easeOut,     0.0, 0.0, 0.58, 1.0,
                                std::chrono::milliseconds(140)};

} // namespace tidewell::TileHover
