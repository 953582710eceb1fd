#pragma once

#include "core/platform/Pointer.h"
#include "gui/windowsystem/WindowSystem.h"

#include <QObject>
#include <QPointer>
#include <optional>

class QScreen;
class QWindow;

namespace tidewell {

// The pointer as the application's own surfaces see it: a Wayland client learns where the
// pointer is only while it is over one of them, hovering or dragging. Each position seen is
// reported to the handler. Once the pointer leaves, it is taken to rest in the bottom-left
// corner of the output where it was last seen, off the shelf, so that what opens where the
// pointer is opens on that output; before it is first seen, on the first output. A drag over
// a surface holds the primary button. Main thread only.
class WaylandPointer : public QObject, public Pointer {
public:
    Point location() const override;
    unsigned pressedButtons() const override;

    // Follows the pointer over the window, which is a layer surface anchored to the top edge.
    void watch(QWindow& window);
    void setHandler(WindowSystem::PointerHandler handler) { handler_ = std::move(handler); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void seen(const QWindow& window, QPointF local);
    void left();
    void report() const;

    std::optional<Point> location_;
    QPointer<QScreen> lastScreen_;
    unsigned buttons_ = 0;
    bool isDragOver_ = false;
    WindowSystem::PointerHandler handler_;
};

} // namespace tidewell
