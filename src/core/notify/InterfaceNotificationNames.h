#pragma once

namespace tidewell {

// In-process notifications that the user interface posts to the local centre.
inline constexpr const char* menuDidBeginTracking = "Tidewell.menuDidBeginTracking";
inline constexpr const char* menuDidEndTracking = "Tidewell.menuDidEndTracking";
// Displays were connected, removed, moved or resized.
inline constexpr const char* screenParametersDidChange = "Tidewell.screenParametersDidChange";

} // namespace tidewell
