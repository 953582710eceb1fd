#include "gui/windowsystem/wayland/WaylandPointer.h"

#include "gui/windowsystem/wayland/WaylandDragPasteboard.h"
#include "support/FakeDisplays.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QEnterEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QWindow>
#include <functional>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

// What one surface sees, sent to a 200-pixel-wide window on the 1920 x 1080 test display,
// which the compositor would centre at the top: its left edge is at x = 860.
struct Case {
    const char* name;
    std::function<void(QWindow&)> events;
    Point location;
    unsigned buttons;
    bool offersFiles;
};

void send(QWindow& window, QEvent&& event) {
    QCoreApplication::sendEvent(&window, &event);
}

QMimeData* mime(const char* format) {
    static QMimeData data;
    data.clear();
    data.setData(format, "file:///tmp/site\r\n");
    return &data;
}

void drag(QWindow& window, QEvent::Type type, const char* format, QPointF at) {
    send(window, QDragMoveEvent(at.toPoint(), Qt::CopyAction, mime(format), Qt::NoButton,
                                Qt::NoModifier, type));
}

void mouse(QWindow& window, QEvent::Type type, QPointF at, Qt::MouseButtons buttons) {
    send(window, QMouseEvent(type, at, at, Qt::LeftButton, buttons, Qt::NoModifier));
}

// Off the shelf: the bottom-left corner of the display.
const Point resting{0, 0};

TEST(WaylandPointer, FollowsThePointerAndDragsOverItsSurfacesAndRestsOffThemOnceTheyLeave) {
    for (const auto& [name, events, location, buttons, offersFiles] : std::vector<Case>{
             {"nothing seen yet", [](QWindow&) {}, resting, 0, false},
             // The top row of pixels is inside the display, not on its excluded top edge.
             {"entered on the top row",
              [](QWindow& w) {
                  send(w, QEnterEvent({5, 0}, {5, 0}, {5, 0}));
              },
              {865, 1079},
              0,
              false},
             {"moved",
              [](QWindow& w) {
                  mouse(w, QEvent::MouseMove, {40.5, 30}, {});
              },
              {900, 1049},
              0,
              false},
             {"pressed",
              [](QWindow& w) {
                  mouse(w, QEvent::MouseButtonPress, {40, 30}, Qt::LeftButton);
              },
              {900, 1049},
              Pointer::primaryButton,
              false},
             {"pressed and released",
              [](QWindow& w) {
                  mouse(w, QEvent::MouseButtonPress, {40, 30}, Qt::LeftButton);
                  mouse(w, QEvent::MouseButtonRelease, {40, 30}, {});
              },
              {900, 1049},
              0,
              false},
             {"entered and left",
              [](QWindow& w) {
                  send(w, QEnterEvent({5, 0}, {5, 0}, {5, 0}));
                  send(w, QEvent(QEvent::Leave));
              },
              resting, 0, false},
             {"files dragged in",
              [](QWindow& w) {
                  drag(w, QEvent::DragEnter, "text/uri-list", {10, 2});
              },
              {870, 1077},
              Pointer::primaryButton,
              true},
             {"text dragged in",
              [](QWindow& w) {
                  drag(w, QEvent::DragEnter, "text/plain", {10, 2});
              },
              {870, 1077},
              Pointer::primaryButton,
              false},
             {"files dragged through",
              [](QWindow& w) {
                  drag(w, QEvent::DragEnter, "text/uri-list", {10, 2});
                  send(w, QDragLeaveEvent());
              },
              resting, 0, false},
             {"files dropped",
              [](QWindow& w) {
                  drag(w, QEvent::DragEnter, "text/uri-list", {10, 2});
                  drag(w, QEvent::Drop, "text/uri-list", {20, 2});
              },
              {870, 1077},
              0,
              false},
         }) {
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

        events(window);
        EXPECT_EQ(pointer.location(), location) << name;
        EXPECT_EQ(pointer.pressedButtons(), buttons) << name;
        EXPECT_EQ(pasteboard.offersFiles(), offersFiles) << name;
        EXPECT_TRUE(reports.empty() || reports.back() == location) << name;
    }
}

} // namespace
} // namespace tidewell
