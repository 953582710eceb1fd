#pragma once

namespace tidewell {

// Before the application object exists: Qt's Wayland platform is to use the project's
// layer-shell integration, found beside the user interface's library (the build tree's plugins/
// folder, or lib/tidewell/plugins once installed).
void prepareWaylandShell();

} // namespace tidewell
