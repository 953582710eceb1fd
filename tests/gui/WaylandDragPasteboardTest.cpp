#include "gui/windowsystem/wayland/WaylandDragPasteboard.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QWindow>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

// Only file URLs count: a text drag over the shelf must not open it for a drop.
TEST(WaylandDragPasteboard, OffersFilesWhileAFileDragIsOverTheSurfaceUntilItLeavesOrDrops) {
    QWindow window;
    WaylandDragPasteboard pasteboard;
    pasteboard.watch(window);
    const auto send = [&](QEvent::Type type, const char* format) {
        QMimeData data;
        data.setData(format, "file:///tmp/site\r\n");
        QDragMoveEvent event({10, 2}, Qt::CopyAction, &data, Qt::LeftButton, {}, type);
        QCoreApplication::sendEvent(&window, &event);
        return pasteboard.offersFiles();
    };
    EXPECT_FALSE(send(QEvent::DragEnter, "text/plain"));
    EXPECT_TRUE(send(QEvent::DragEnter, "text/uri-list"));
    EXPECT_FALSE(send(QEvent::Drop, "text/uri-list"));
    EXPECT_TRUE(send(QEvent::DragEnter, "text/uri-list"));
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&window, &leave);
    EXPECT_FALSE(pasteboard.offersFiles());
}

} // namespace
} // namespace tidewell
