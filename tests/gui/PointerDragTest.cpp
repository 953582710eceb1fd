#include "support/PointerDrag.h"

#include "gui/EventLoopWait.h"
#include "support/ChildProcess.h"
#include "support/TemporaryDirectory.h"
#include "support/X11TestClient.h"

#include <QDropEvent>
#include <QMimeData>
#include <QRasterWindow>
#include <QUrl>
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <stdexcept>
#include <thread>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

// A window of this process that takes every drag, as the shelf's drop areas do, and
// records where the drag was heard over it and what was dropped.
class DropTarget : public QRasterWindow {
public:
    std::vector<QPoint> positions; // on the screen
    std::optional<QList<QUrl>> droppedUrls;
    QString droppedText;

    bool wasHeardAt(QPoint point) const {
        return std::find(positions.begin(), positions.end(), point) != positions.end();
    }

protected:
    bool event(QEvent* event) override {
        switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
            accept(static_cast<QDropEvent*>(event));
            return true;
        case QEvent::Drop: {
            auto* drop = static_cast<QDropEvent*>(event);
            droppedUrls = drop->mimeData()->urls();
            droppedText = drop->mimeData()->text();
            accept(drop);
            return true;
        }
        default:
            return QRasterWindow::event(event);
        }
    }

private:
    void accept(QDropEvent* event) {
        positions.push_back(mapToGlobal(event->position().toPoint()));
        event->acceptProposedAction();
    }
};

std::string dragSourceProbePath() {
    const char* folder = std::getenv("TIDEWELL_BUILD_DIR");
    if (!folder)
        throw std::runtime_error("TIDEWELL_BUILD_DIR names no build folder; run through ctest");
    return std::string(folder) + "/tests/tidewell_drag_source_probe";
}

// The hand drags from the probe, another application, to a window of this process.
class PointerDragTest : public ::testing::Test {
protected:
    PointerDragTest() {
        target.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
        target.setGeometry(800, 100, 300, 200);
        target.show();
    }

    std::unique_ptr<ChildProcess> startSource(const std::vector<std::string>& paths) {
        std::vector<std::string> arguments = {dragSourceProbePath(), "--at", "100,500"};
        arguments.insert(arguments.end(), paths.begin(), paths.end());
        return std::make_unique<ChildProcess>(ChildProcess::Launch{
            .arguments = arguments,
            .environment = {{"DISPLAY", std::getenv("DISPLAY")}, {"QT_QPA_PLATFORM", "xcb"}}});
    }

    // The hand's moves block: they run on a thread of their own while this one serves the
    // target.
    static void perform(const std::function<void(X11TestClient&)>& moves) {
        std::atomic<bool> isDone = false;
        std::thread hand([&] {
            X11TestClient client;
            moves(client);
            isDone = true;
        });
        pumpEventsUntil([&] { return isDone.load(); }, 30s);
        hand.join();
    }

    TemporaryDirectory files;
    DropTarget target;
};

TEST_F(PointerDragTest, TheTargetHearsEachStopAndGetsTheProbesPathsInOrder) {
    const std::string beta = files.makeFolder("beta");
    const std::string alpha = files.makeFolder("alpha project");
    const std::string notes = files.write("notes.txt");
    const auto source = startSource({beta, alpha, notes});
    ASSERT_TRUE(pumpEventsUntil([&] { return source->standardOutput() == "ready\n"; }))
        << source->standardOutput();
    ASSERT_TRUE(pumpEventsUntil([&] { return target.isExposed(); }));

    perform([](X11TestClient& hand) {
        PointerDrag drag(hand, 160, 540);
        drag.moveTo(850, 150);
        drag.moveTo(950, 160);
        drag.hover(300ms);
        drag.moveTo(1000, 200);
        drag.release();
    });

    ASSERT_TRUE(pumpEventsUntil([&] { return target.droppedUrls.has_value(); }));
    for (const QPoint stop : {QPoint(850, 150), QPoint(950, 160), QPoint(1000, 200)})
        EXPECT_TRUE(target.wasHeardAt(stop)) << stop.x() << "," << stop.y();
    EXPECT_EQ(*target.droppedUrls,
              (QList<QUrl>{QUrl::fromLocalFile(QString::fromStdString(beta)),
                           QUrl::fromLocalFile(QString::fromStdString(alpha)),
                           QUrl::fromLocalFile(QString::fromStdString(notes))}));
    EXPECT_EQ(target.droppedText.toStdString(), beta + "\n" + alpha + "\n" + notes);
    EXPECT_TRUE(pumpEventsUntil([&] {
        return source->standardOutput() == "ready\npressed 60,40\nfinished copy\n";
    })) << source->standardOutput();
}

} // namespace
} // namespace tidewell::testing
