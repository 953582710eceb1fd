#pragma once

namespace tidewell {

// Gives the application's icon to the windows the window manager decorates, from the first
// of them on: the shelf's own windows show none, and the icon's theme lookup and the pictures
// each window would carry cost memory from the start.
void useApplicationIcon();

} // namespace tidewell
