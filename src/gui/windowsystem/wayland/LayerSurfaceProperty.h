#pragma once

namespace tidewell {

// The window property that asks the project's Wayland shell integration for a layer surface,
// anchored to the top edge of the window's screen, instead of a normal window. Its value
// names the layer: "overlay" (over everything) or "top" (over normal windows, under overlay).
inline constexpr char layerSurfaceProperty[] = "tidewellLayerSurface";
// The name under which that shell integration is loaded.
inline constexpr char layerShellIntegrationKey[] = "tidewell-layer-shell";

} // namespace tidewell
