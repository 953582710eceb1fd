#include "gui/windowsystem/wayland/WaylandDragPasteboard.h"

#include <QDropEvent>
#include <QMimeData>
#include <QWindow>

namespace tidewell {

void WaylandDragPasteboard::watch(QWindow& window) {
    window.installEventFilter(this);
}

bool WaylandDragPasteboard::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::DragEnter)
        offersFiles_ = static_cast<QDropEvent*>(event)->mimeData()->hasFormat("text/uri-list");
    else if (event->type() == QEvent::DragLeave || event->type() == QEvent::Drop)
        offersFiles_ = false;
    return false;
}

} // namespace tidewell
