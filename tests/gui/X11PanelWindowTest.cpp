#include "gui/windowsystem/x11/X11PanelWindow.h"

#include "gui/EventLoopWait.h"
#include "support/X11TestClient.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using testing::processEventsUntil;
using namespace std::chrono_literals;

// 200 x 88 points at the top centre of the program's 1920 x 1080 display.
const Rect shelfFrame{{860, 992}, {200, 88}};
constexpr const char* allWorkspaces = "4294967295";
// The window manager is slow to answer while the machine is busy.
constexpr auto windowManagerDeadline = 15s;

// The panel is on every workspace, out of taskbars and pagers, above the rest and leaves the
// focus alone, also when shown again (the window manager forgets a window's workspace when it
// is unmapped). Without an outline it takes no pointer; the outline is checked on screen end
// to end.
TEST(X11PanelWindowTest, AppearsOnEveryWorkspaceOutOfTaskbarsAndTakesThePointerInItsOutline) {
    X11PanelWindow panel;
    testing::X11TestClient inspector;
    const unsigned long window = panel.view().winId();
    const unsigned long other = inspector.createManagedWindow();
    ASSERT_TRUE(
        processEventsUntil([&] { return inspector.isViewable(other); }, windowManagerDeadline));
    inspector.activate(other);
    ASSERT_TRUE(processEventsUntil(
        [&] { return inspector.activeWindow() == other && inspector.focusedWindow() == other; },
        windowManagerDeadline));
    ASSERT_FALSE(inspector.hasCompositor());
    const char* states[] = {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER",
                            "_NET_WM_STATE_ABOVE"};
    for (int showing = 0; showing < 2; ++showing) {
        SCOPED_TRACE(showing ? "shown again" : "shown");
        panel.setFrame(shelfFrame);
        panel.setAlpha(1);
        panel.orderFrontWithoutActivating();
        // Once the window manager has framed the window, it has decided about focus too.
        ASSERT_TRUE(processEventsUntil(
            [&] {
                return inspector.isViewable(window) &&
                       !inspector.property(window, "_NET_FRAME_EXTENTS").empty() &&
                       inspector.property(window, "_NET_WM_DESKTOP") == allWorkspaces &&
                       std::ranges::all_of(states, [&](const char* state) {
                           return inspector.property(window, "_NET_WM_STATE").find(state) !=
                                  std::string::npos;
                       });
            },
            windowManagerDeadline))
            << inspector.property(window, "_NET_WM_STATE");
        testing::pumpEventsFor(200ms); // room for a focus change, which must not come
        EXPECT_TRUE(panel.isVisible());
        // The shelf's frame with the shadow margins beside and below it.
        EXPECT_EQ(inspector.rootGeometry(window), (testing::WindowRect{844, 0, 232, 104}));
        EXPECT_FALSE(inspector.acceptsInput(window));
        EXPECT_EQ(inspector.focusedWindow(), other);
        EXPECT_EQ(inspector.activeWindow(), other);
        // No outline yet: nothing takes the pointer, and nothing shows.
        EXPECT_TRUE(inspector.inputShape(window).isEmpty());
        EXPECT_FALSE(inspector.boundingShape(window).contains(116, 44));
        if (showing == 0) {
            panel.orderOut();
            ASSERT_TRUE(processEventsUntil([&] { return !inspector.isViewable(window); }));
            EXPECT_FALSE(panel.isVisible());
        }
    }
}

} // namespace
} // namespace tidewell
