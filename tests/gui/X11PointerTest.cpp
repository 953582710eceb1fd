#include "gui/windowsystem/x11/X11Pointer.h"

#include "core/notify/NotificationCenter.h"
#include "gui/platform/QtMainQueue.h"
#include "gui/windowsystem/QtScreens.h"
#include "support/X11TestClient.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

using testing::X11TestClient;

// The program's display is one 1920 x 1080 screen at a ratio of 1.
TEST(QtScreens, DescribesTheDisplayInPointsFromItsBottomLeft) {
    QtMainQueue queue;
    NotificationCenter center(queue);
    const QtScreens screens(center);
    const std::vector<Display> displays = screens.all();
    ASSERT_EQ(displays.size(), 1u);
    EXPECT_EQ(displays[0].frame, (Rect{{0, 0}, {1920, 1080}}));
    EXPECT_EQ(displays[0].visibleFrame, (Rect{{0, 0}, {1920, 1080}}));
    EXPECT_EQ(displays[0].backingScale, 1);
    EXPECT_TRUE(displays[0].auxiliaryTopLeftArea.isEmpty());
    EXPECT_EQ(corePointFromRoot(100, 80), (Point{100, 999}));
}

TEST(X11Pointer, ReportsTheLocationInPointsAndThePrimaryButtonAsBitZero) {
    X11TestClient client;
    const X11Pointer pointer;
    client.movePointerTo(300, 200);
    EXPECT_EQ(pointer.location(), (Point{300, 879}));
    EXPECT_EQ(pointer.pressedButtons(), 0u);
    client.setPrimaryButton(true);
    EXPECT_EQ(pointer.pressedButtons(), Pointer::primaryButton);
    client.setPrimaryButton(false);
    EXPECT_EQ(pointer.pressedButtons(), 0u);
}

} // namespace
} // namespace tidewell
