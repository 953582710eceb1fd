#pragma once

#include "core/platform/DragPasteboard.h"
#include "gui/windowsystem/x11/X11DragProbe.h"

namespace tidewell {

// Files dragged from another application, as the X drag-and-drop selection shows them.
class X11DragPasteboard : public DragPasteboard {
public:
    bool offersFiles() const override;

private:
    // Asking the X server changes nothing the caller can see.
    mutable X11DragProbe probe_;
};

} // namespace tidewell
