#pragma once

namespace tidewell {

// Stage of the shelf panel's open/close sequence.
enum class PanelState { hidden, showing, visible, hiding };

} // namespace tidewell
