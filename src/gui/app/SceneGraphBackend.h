#pragma once

namespace tidewell {

// Draws every window with Qt Quick's software renderer unless QT_QUICK_BACKEND asks for
// another. Before the first window exists.
void chooseSceneGraphBackend();

} // namespace tidewell
