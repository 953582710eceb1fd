#include "gui/windowsystem/x11/X11DragProbe.h"

#include "support/X11TestClient.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

using testing::VirtualDisplay;
using testing::X11TestClient;

// A file drag to the shelf is walked end to end; a drag of text or a released button is not.
TEST(X11DragProbe, SeesFilesDraggedWithThePrimaryButtonHeld) {
    VirtualDisplay display;
    X11TestClient source;
    const unsigned long window = source.createWindow(100, 100, 200, 200);
    source.movePointerTo(150, 150);
    X11DragProbe probe;

    source.setPrimaryButton(true);
    EXPECT_FALSE(probe.isDraggingFiles()); // nobody owns the drag selection

    source.offerDrag(window, {"text/plain", "text/uri-list"});
    EXPECT_TRUE(probe.isDraggingFiles());

    source.setPrimaryButton(false);
    EXPECT_FALSE(probe.isDraggingFiles());

    source.setPrimaryButton(true);
    source.offerDrag(window, {"text/plain", "UTF8_STRING"});
    EXPECT_FALSE(probe.isDraggingFiles());
}

} // namespace
} // namespace tidewell
