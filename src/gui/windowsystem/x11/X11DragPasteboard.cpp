#include "gui/windowsystem/x11/X11DragPasteboard.h"

namespace tidewell {

bool X11DragPasteboard::offersFiles() const {
    return probe_.isDraggingFiles();
}

} // namespace tidewell
