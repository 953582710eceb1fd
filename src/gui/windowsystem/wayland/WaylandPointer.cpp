#include "gui/windowsystem/wayland/WaylandPointer.h"

#include "core/platform/Display.h"
#include "gui/windowsystem/QtScreens.h"
#include "gui/windowsystem/ScreenCoordinates.h"

#include <QDropEvent>
#include <QEnterEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>
#include <cmath>

namespace tidewell {
namespace {

// The compositor centres a surface anchored to the top edge only: a point on it is that far
// from the output's top-left corner. The pixel under the point stands for it, placed by its
// bottom-left corner as the X11 backend places root-window pixels.
QPointF globalPosition(const QWindow& window, QPointF local) {
    const QRect output = window.screen()->geometry();
    const qreal left = output.x() + (output.width() - window.width()) / 2;
    return {std::floor(left + local.x()), std::floor(output.y() + local.y()) + 1};
}

} // namespace

WaylandPointer::WaylandPointer(const Displays& displays)
    : displays_(displays), crossings_(displays) {}

Point WaylandPointer::location() const {
    if (const std::optional<Point> location = crossings_.location())
        return *location;
    const std::vector<Display> displays = displays_.all();
    return displays.empty() ? Point{} : displays.front().frame.origin;
}

unsigned WaylandPointer::pressedButtons() const {
    return buttons_ | (isDragOver_ ? primaryButton : 0);
}

void WaylandPointer::watch(QWindow& window) {
    window.installEventFilter(this);
}

bool WaylandPointer::eventFilter(QObject* watched, QEvent* event) {
    const auto& window = static_cast<const QWindow&>(*watched);
    switch (event->type()) {
    case QEvent::Enter:
        seen(window, static_cast<QEnterEvent*>(event)->position());
        break;
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        buttons_ = (mouse->buttons() & Qt::LeftButton) ? primaryButton : 0;
        seen(window, mouse->position());
        break;
    }
    case QEvent::DragEnter:
    case QEvent::DragMove:
        isDragOver_ = true;
        seen(window, static_cast<QDropEvent*>(event)->position());
        break;
    case QEvent::Drop:
        isDragOver_ = false;
        break;
    case QEvent::Leave:
    case QEvent::DragLeave:
        isDragOver_ = false;
        crossings_.left();
        break;
    default:
        break;
    }
    return false;
}

void WaylandPointer::seen(const QWindow& window, QPointF local) {
    if (window.screen())
        crossings_.moved(corePoint(globalPosition(window, local), primaryScreenGeometry()));
}

} // namespace tidewell
