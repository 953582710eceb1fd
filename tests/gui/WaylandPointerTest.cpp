#include "gui/windowsystem/wayland/WaylandPointer.h"

#include "gui/windowsystem/wayland/WaylandDragPasteboard.h"
#include "support/FakeDisplays.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QEnterEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QWindow>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

// What one surface sees: the pointer enters at (5, 0), moves to (40.5, 30), a button goes
// down and up at (40, 30), files or text are dragged in at (10, 2) and dropped at (20, 2).
enum class Step { enter, leave, move, press, release, dragFiles, dragText, dragLeave, drop };

void send(QWindow& window, QEvent&& event) {
    QCoreApplication::sendEvent(&window, &event);
}

void perform(QWindow& window, Step step) {
    static QMimeData files;
    static QMimeData text;
    files.setData("text/uri-list", "file:///tmp/site\r\n");
    text.setData("text/plain", "file:///tmp/site\r\n");
    const auto drag = [&](QEvent::Type type, const QMimeData* data, QPoint at) {
        send(window, QDragMoveEvent(at, Qt::CopyAction, data, Qt::NoButton, Qt::NoModifier, type));
    };
    const auto mouse = [&](QEvent::Type type, QPointF at, Qt::MouseButtons buttons) {
        send(window, QMouseEvent(type, at, at, Qt::LeftButton, buttons, Qt::NoModifier));
    };
    switch (step) {
    case Step::enter:
        return send(window, QEnterEvent({5, 0}, {5, 0}, {5, 0}));
    case Step::leave:
        return send(window, QEvent(QEvent::Leave));
    case Step::move:
        return mouse(QEvent::MouseMove, {40.5, 30}, {});
    case Step::press:
        return mouse(QEvent::MouseButtonPress, {40, 30}, Qt::LeftButton);
    case Step::release:
        return mouse(QEvent::MouseButtonRelease, {40, 30}, {});
    case Step::dragFiles:
        return drag(QEvent::DragEnter, &files, {10, 2});
    case Step::dragText:
        return drag(QEvent::DragEnter, &text, {10, 2});
    case Step::dragLeave:
        return send(window, QDragLeaveEvent());
    case Step::drop:
        return drag(QEvent::Drop, &files, {20, 2});
    }
}

// Sent to a 200-pixel-wide window on the 1920 x 1080 test display, which the compositor would
// centre at the top: its left edge is at x = 860. Off the shelf the pointer rests at the
// display's bottom-left corner.
TEST(WaylandPointer, FollowsThePointerAndDragsOverItsSurfacesAndRestsOffThemOnceTheyLeave) {
    using enum Step;
    const Point resting{0, 0};
    const struct {
        const char* name;
        std::vector<Step> steps;
        Point location;
        unsigned buttons;
        bool offersFiles;
    } cases[] = {
        {"nothing seen yet", {}, resting, 0, false},
        // The top row of pixels is inside the display, not on its excluded top edge.
        {"entered on the top row", {enter}, {865, 1079}, 0, false},
        {"moved", {move}, {900, 1049}, 0, false},
        {"pressed", {press}, {900, 1049}, Pointer::primaryButton, false},
        {"pressed and released", {press, release}, {900, 1049}, 0, false},
        {"entered and left", {enter, leave}, resting, 0, false},
        {"files dragged in", {dragFiles}, {870, 1077}, Pointer::primaryButton, true},
        {"text dragged in", {dragText}, {870, 1077}, Pointer::primaryButton, false},
        {"files dragged through", {dragFiles, dragLeave}, resting, 0, false},
        {"files dropped", {dragFiles, drop}, {870, 1077}, 0, false},
    };
    for (const auto& row : cases) {
        QWindow window;
        window.resize(200, 60);
        testing::FakeDisplays displays;
        displays.displays = {Display{.frame = {{0, 0}, {1920, 1080}}}};
        WaylandPointer pointer(displays);
        WaylandDragPasteboard pasteboard;
        pointer.watch(window);
        pasteboard.watch(window);
        std::vector<Point> reports;
        pointer.setHandler([&](Point point) { reports.push_back(point); });

        for (const Step step : row.steps)
            perform(window, step);
        EXPECT_EQ(pointer.location(), row.location) << row.name;
        EXPECT_EQ(pointer.pressedButtons(), row.buttons) << row.name;
        EXPECT_EQ(pasteboard.offersFiles(), row.offersFiles) << row.name;
        EXPECT_TRUE(reports.empty() || reports.back() == row.location) << row.name;
    }
}

} // namespace
} // namespace tidewell
