#pragma once

#include "gui/windowsystem/WindowSystemChoice.h"

namespace tidewell {

// The session from its environment, and the globals of its Wayland compositor, if one
// answers: one roundtrip over a connection that is closed again at once.
Session currentSession();

} // namespace tidewell
