#include "gui/windowsystem/x11/X11PanelWindow.h"

#include "gui/EventLoopWait.h"
#include "support/ChildProcess.h"
#include "support/X11TestClient.h"
#include "support/X11WindowInspector.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using testing::ChildProcess;
using testing::pumpEventsFor;
using testing::pumpEventsUntil;
using testing::X11TestClient;
using testing::X11WindowInspector;
using namespace std::chrono_literals;

// 200 x 88 points at the top centre of the program's 1920 x 1080 display.
const Rect shelfFrame{{860, 992}, {200, 88}};
constexpr unsigned long allWorkspaces = 0xFFFFFFFF;
// The window manager is slow to answer while the machine is busy.
constexpr auto windowManagerDeadline = 15s;

class X11PanelWindowTest : public ::testing::Test {
protected:
    unsigned long window() { return panel.view().winId(); }

    // Once the window manager has framed the window, it has decided about focus too.
    bool isManaged() {
        return inspector.isViewable(window()) &&
               inspector.cardinal(window(), "_NET_FRAME_EXTENTS").has_value();
    }

    void showAtShelfFrame() {
        panel.setFrame(shelfFrame);
        panel.setAlpha(1);
        panel.orderFrontWithoutActivating();
        ASSERT_TRUE(pumpEventsUntil([&] { return isManaged(); }, windowManagerDeadline));
    }

    X11PanelWindow panel;
    X11WindowInspector inspector;
};

TEST_F(X11PanelWindowTest, AppearsOnEveryWorkspaceOutOfTaskbarsAndLeavesTheFocusAlone) {
    const unsigned long other = inspector.createWindow();
    ASSERT_TRUE(
        pumpEventsUntil([&] { return inspector.isViewable(other); }, windowManagerDeadline));
    inspector.activate(other);
    ASSERT_TRUE(pumpEventsUntil(
        [&] { return inspector.activeWindow() == other && inspector.focusedWindow() == other; },
        windowManagerDeadline));

    showAtShelfFrame();
    pumpEventsFor(200ms); // room for a focus change, which must not come
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(panel.frame(), shelfFrame);
    // The shelf's frame with the shadow margins beside and below it.
    EXPECT_EQ(inspector.rootGeometry(window()), (testing::WindowRect{844, 0, 232, 104}));
    EXPECT_EQ(inspector.cardinal(window(), "_NET_WM_DESKTOP"), allWorkspaces);
    EXPECT_TRUE(inspector.hasState(window(), "_NET_WM_STATE_SKIP_TASKBAR"));
    EXPECT_TRUE(inspector.hasState(window(), "_NET_WM_STATE_SKIP_PAGER"));
    EXPECT_TRUE(inspector.hasState(window(), "_NET_WM_STATE_ABOVE"));
    EXPECT_FALSE(inspector.acceptsInput(window()));
    EXPECT_EQ(inspector.focusedWindow(), other);
    EXPECT_EQ(inspector.activeWindow(), other);

    panel.orderOut();
    ASSERT_TRUE(
        pumpEventsUntil([&] { return !inspector.isViewable(window()); }, windowManagerDeadline));
    EXPECT_FALSE(panel.isVisible());

    // The window manager forgets a window's workspace when it is unmapped, and takes the
    // request for all of them a moment after mapping it again.
    showAtShelfFrame();
    EXPECT_TRUE(pumpEventsUntil(
        [&] { return inspector.cardinal(window(), "_NET_WM_DESKTOP") == allWorkspaces; },
        windowManagerDeadline));
    EXPECT_TRUE(inspector.hasState(window(), "_NET_WM_STATE_SKIP_TASKBAR"));
    EXPECT_EQ(inspector.focusedWindow(), other);
}

TEST_F(X11PanelWindowTest, OnlyTheOutlineTakesThePointerWithAndWithoutCompositor) {
    ASSERT_FALSE(inspector.hasCompositor());
    showAtShelfFrame();
    // No outline yet: nothing takes the pointer, and nothing shows.
    EXPECT_TRUE(inspector.inputShape(window()).isEmpty());
    EXPECT_FALSE(inspector.boundingShape(window()).contains(116, 44));

    // The shelf starts 16 pixels into the window; flares of 8, lower corners of 18.
    panel.setOutline(QRectF(16, 0, 200, 88), 8, 18);
    testing::WindowRegion shape;
    ASSERT_TRUE(pumpEventsUntil([&] {
        shape = inspector.inputShape(window());
        return !shape.isEmpty();
    }));
    EXPECT_TRUE(shape.contains(116, 44));  // the body's centre
    EXPECT_TRUE(shape.contains(20, 0));    // the left flare widens to the top edge
    EXPECT_TRUE(shape.contains(211, 0));   // and so does the right one
    EXPECT_FALSE(shape.contains(17, 6));   // under the left flare
    EXPECT_FALSE(shape.contains(20, 44));  // beside the body
    EXPECT_FALSE(shape.contains(25, 87));  // just outside the lower-left corner
    EXPECT_FALSE(shape.contains(206, 87)); // and the lower-right one
    EXPECT_TRUE(shape.contains(30, 80));   // inside that corner's curve
    EXPECT_FALSE(shape.contains(5, 50));   // the shadow margin
    EXPECT_TRUE(inspector.hasBoundingShape(window()));
    // The window manager's frame around the panel takes the shape over and then lets the
    // pointer through to the desktop as well, which is all there is below.
    X11TestClient client;
    client.movePointerTo(844 + 116, 44);
    EXPECT_TRUE(pumpEventsUntil([&] { return client.windowUnderPointer() != 0; }));
    client.movePointerTo(844 + 5, 50);
    EXPECT_TRUE(pumpEventsUntil([&] { return client.windowUnderPointer() == 0; }));

    ChildProcess compositor({.arguments = {"xcompmgr"},
                             .workingDirectory = "/",
                             .environment = {{"DISPLAY", std::getenv("DISPLAY")}}});
    ASSERT_TRUE(pumpEventsUntil([&] { return inspector.hasCompositor(); }));
    panel.setOutline(QRectF(16, 0, 300, 88), 8, 18);
    ASSERT_TRUE(pumpEventsUntil([&] {
        shape = inspector.inputShape(window());
        return shape.contains(300, 44);
    }));
    EXPECT_FALSE(shape.contains(306, 87)); // the new lower-right corner
    EXPECT_FALSE(shape.contains(320, 44)); // beside the new body
    EXPECT_FALSE(inspector.hasBoundingShape(window()));
}

} // namespace
} // namespace tidewell
