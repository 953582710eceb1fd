#pragma once

#include "core/platform/Pointer.h"
#include "gui/windowsystem/PointerCrossings.h"
#include "gui/windowsystem/WindowSystem.h"

#include <QObject>

class QWindow;

namespace tidewell {

// The pointer as the application's own surfaces see it: a Wayland client learns where the
// pointer is only while it is over one of them, hovering or dragging. Each position seen is
// reported to the handler, and so is a leave (see PointerCrossings); before it is first seen
// the pointer rests on the first output. A drag over a surface holds the primary button.
// Main thread only.
class WaylandPointer : public QObject, public Pointer {
public:
    explicit WaylandPointer(const Displays& displays);

    Point location() const override;
    unsigned pressedButtons() const override;

    // Follows the pointer over the window, which is a layer surface anchored to the top edge.
    void watch(QWindow& window);
    void setHandler(WindowSystem::PointerHandler handler) {
        crossings_.setHandler(std::move(handler));
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void seen(const QWindow& window, QPointF local);

    const Displays& displays_;
    PointerCrossings crossings_;
    unsigned buttons_ = 0;
    bool isDragOver_ = false;
};

} // namespace tidewell
