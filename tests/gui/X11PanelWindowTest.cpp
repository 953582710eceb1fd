#include "gui/windowsystem/x11/X11PanelWindow.h"

#include "gui/TestDesktop.h"
#include "support/X11TestClient.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using testing::processEventsUntil;
using namespace std::chrono_literals;

// Also when shown again: the window manager forgets a window's workspace when it is unmapped.
// Without an outline it takes no pointer and shows nothing; its place, focus and outline are
// checked end to end.
TEST(X11PanelWindowTest, AppearsOnEveryWorkspaceOutOfTaskbarsAndAboveTheRestWhenShownAgain) {
    X11PanelWindow panel;
    testing::X11TestClient inspector;
    const unsigned long window = panel.view().winId();
    const char* states[] = {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER",
                            "_NET_WM_STATE_ABOVE"};
    for (const char* showing : {"shown", "shown again"}) {
        SCOPED_TRACE(showing);
        panel.setFrame({{860, 992}, {200, 88}});
        panel.setAlpha(1);
        panel.orderFrontWithoutActivating();
        // The window manager is slow to answer while the machine is busy.
        ASSERT_TRUE(processEventsUntil(
            [&] {
                return inspector.isViewable(window) &&
                       inspector.property(window, "_NET_WM_DESKTOP") == "4294967295" &&
                       std::ranges::all_of(states, [&](const char* state) {
                           return inspector.property(window, "_NET_WM_STATE").find(state) !=
                                  std::string::npos;
                       });
            },
            15s))
            << inspector.property(window, "_NET_WM_STATE") << " on "
            << inspector.property(window, "_NET_WM_DESKTOP");
        EXPECT_TRUE(inspector.inputShape(window).empty());
        EXPECT_FALSE(testing::contains(inspector.boundingShape(window), 116, 44))
            << "drawn all black";
        panel.orderOut();
        // Shown again only once withdrawn: shown at once it can lose its states to the
        // withdrawal, which this test does not cover.
        ASSERT_TRUE(processEventsUntil([&] {
            return !inspector.isViewable(window) &&
                   inspector.property(window, "_NET_WM_STATE").empty();
        }));
    }
}

} // namespace
} // namespace tidewell
