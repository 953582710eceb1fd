#pragma once

#include "core/platform/DragPasteboard.h"

#include <QObject>

class QWindow;

namespace tidewell {

// Files dragged from another application, as the application's own surfaces see them: a
// Wayland client learns what a drag offers only while it is over one of them.
class WaylandDragPasteboard : public QObject, public DragPasteboard {
public:
    bool offersFiles() const override { return offersFiles_; }

    // Follows drags over the window.
    void watch(QWindow& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool offersFiles_ = false;
};

} // namespace tidewell
