#pragma once

#include "core/shelf/Animation.h"

namespace tidewell::NotchTransition {

// Grows the shelf out of the notch: fast start, long soft landing.
inline constexpr Animation expand{Animation::Curve::bezier,      0.32, 0.72, 0.0, 1.0,
                                  std::chrono::milliseconds(300)};
// Shrinks it back: slow start, quick finish into the notch.
inline constexpr Animation collapse{Animation::Curve::bezier,      0.4, 0.0, 1.0, 1.0,
                                    std::chrono::milliseconds(200)};
inline constexpr Animation contentFadeIn{Animation::Curve::easeOut,     0.0, 0.0, 0.58, 1.0,
                                         std::chrono::milliseconds(180)};
inline constexpr Animation contentFadeOut{Animation::Curve::easeIn,      0.42, 0.0, 1.0, 1.0,
                                          std::chrono::milliseconds(100)};
// The expand curve, shorter: size changes of the open shelf and its slots.
inline constexpr Animation resize{Animation::Curve::bezier,      0.32, 0.72, 0.0, 1.0,
                                  std::chrono::milliseconds(220)};

} // namespace tidewell::NotchTransition
