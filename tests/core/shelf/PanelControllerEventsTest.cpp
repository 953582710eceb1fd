#include "PanelControllerFixture.h"
#include "core/notify/InterfaceNotificationNames.h"

namespace tidewell::testing {
namespace {

using PanelMenuTracking = PanelControllerFixture;
using PanelResizing = PanelControllerFixture;
using PanelTrigger = PanelControllerFixture;
using PanelPrivacy = PanelControllerFixture;
using PanelOnRequest = PanelControllerFixture;

TEST_F(PanelMenuTracking, HoldsTheShelfOpenAndArmsACloseWhenTrackingEndsOutside) {
    openFully();
    localCenter.post(menuDidBeginTracking);
    queue.runUntilIdle();
    move(farAway); // arms nothing while a menu is open
    controller->scheduleHide(std::chrono::milliseconds(450));
    advanceMilliseconds(2000);
    EXPECT_EQ(controller->panelState(), PanelState::visible);

    localCenter.post(menuDidEndTracking);
    queue.runUntilIdle();
    advanceMilliseconds(449);
    EXPECT_EQ(controller->panelState(), PanelState::visible);
    advanceMilliseconds(1);
    EXPECT_EQ(controller->panelState(), PanelState::hiding);
}

TEST_F(PanelMenuTracking, TrackingCancelsAnArmedCloseAndEndingInsideArmsNone) {
    openFully();
    move(farAway);
    localCenter.post(menuDidBeginTracking);
    queue.runUntilIdle();
    pointer.where = {700, 800}; // back over the shelf when the menu closes
    localCenter.post(menuDidEndTracking);
    queue.runUntilIdle();
    advanceMilliseconds(2000);
    EXPECT_EQ(controller->panelState(), PanelState::visible);
}

TEST_F(PanelResizing, GrowingAppliesAtOnceAndShrinkingWaitsForTheDrawing) {
    pin("one");
    pin("two");
    pin("three");
    openFully();
    const Rect three{{720 - 128.5, 784}, {257, 116}};
    const Rect four{{720 - 161.5, 784}, {323, 116}};
    ASSERT_EQ(panel.frame(), three);

    pin("four");
    queue.runUntilIdle();
    EXPECT_EQ(panel.frame(), four);
    EXPECT_EQ(controller->layout().expandedSize(), four.size);
    advanceMilliseconds(250);
    EXPECT_EQ(panel.frame(), four);

    store.unpin(store.favorites().back().id);
    queue.runUntilIdle();
    EXPECT_EQ(controller->layout().expandedSize(), three.size);
    advanceMilliseconds(249);
    EXPECT_EQ(panel.frame(), four);
    advanceMilliseconds(1);
    EXPECT_EQ(panel.frame(), three);
}

TEST_F(PanelResizing, APinWhileOpeningResizesTheDrawingAndThePanelOnceOpen) {
    pin("one");
    pin("two");
    pin("three");
    move(inTrigger);
    ASSERT_TRUE(controller->layout().isBackgroundExpanded());
    const Rect three = panel.frame();
    pin("four");
    queue.runUntilIdle();
    EXPECT_EQ(controller->layout().expandedSize(), (Size{323, 116}));
    EXPECT_EQ(panel.frame(), three);
    advanceMilliseconds(300);
    EXPECT_EQ(panel.frame(), (Rect{{720 - 161.5, 784}, {323, 116}}));
}

TEST_F(PanelResizing, AShrinkOvertakenByAGrowthNeverLandsAtTheSmallerFrame) {
    pin("one");
    pin("two");
    pin("three");
    pin("four");
    openFully();
    const Rect four = panel.frame();
    store.unpin(store.favorites().back().id);
    queue.runUntilIdle();
    advanceMilliseconds(100);
    pin("five");
    queue.runUntilIdle();
    for (int step = 0; step < 4; ++step) {
        advanceMilliseconds(100);
        EXPECT_EQ(panel.frame(), four) << "after " << 200 + step * 100 << " ms";
    }
    EXPECT_EQ(controller->layout().expandedSize(), four.size);
}

TEST_F(PanelTrigger, DraggedFilesWidenTheTriggerBy56EachSideAndLowerItTo160) {
    const struct {
        Point location;
        unsigned buttons;
        bool offersFiles;
        bool opens;
    } cases[] = {
        {{574, 740}, 1, true, true},    {{865.9, 740}, 1, true, true},
        {{573.9, 740}, 1, true, false}, {{866, 740}, 1, true, false},
        {{720, 739.9}, 1, true, false}, {{574, 740}, 0, true, false},
        {{574, 740}, 1, false, false},  {{720, 890}, 0, false, true},
    };
    for (const auto& [location, buttons, offersFiles, opens] : cases) {
        SCOPED_TRACE(::testing::Message() << location.x << "," << location.y << " buttons "
                                          << buttons << " files " << offersFiles);
        controller.reset();
        panel = FakePanelWindow();
        controller = makeController();
        pointer.buttons = buttons;
        dragPasteboard.files = offersFiles;
        move(location);
        EXPECT_EQ(controller->panelState() == PanelState::showing, opens);
    }
}

TEST_F(PanelPrivacy, ThePreferenceReachesTheOpenPanelWithoutReopening) {
    EXPECT_FALSE(panel.sharingHidden);
    openFully();
    appearance.setHideFromScreenCapture(true);
    queue.runUntilIdle();
    EXPECT_TRUE(panel.sharingHidden);
    appearance.setHideFromScreenCapture(false);
    queue.runUntilIdle();
    EXPECT_FALSE(panel.sharingHidden);
    EXPECT_EQ(panel.orderFrontCount, 1);
    EXPECT_EQ(controller->panelState(), PanelState::visible);

    appearance.setHideFromScreenCapture(true);
    controller.reset();
    panel = FakePanelWindow();
    controller = makeController();
    EXPECT_TRUE(panel.sharingHidden);
}

TEST_F(PanelOnRequest, OpensOnThePointersDisplayAndClosesAfterwardsUnlessHovered) {
    pointer.where = {2400, 500};
    const auto display = controller->screen(pointer.where);
    ASSERT_TRUE(display);
    EXPECT_EQ(*display, sideDisplay);
    EXPECT_FALSE(controller->screen({-1, 500}));
    EXPECT_EQ(controller->screen({1439.9, 0}), mainDisplay);

    controller->show(*display);
    controller->scheduleHide(std::chrono::milliseconds(2500));
    queue.runUntilIdle();
    EXPECT_EQ(panel.frame(), (Rect{{2400 - 100, 1080 - 116}, {200, 116}}));

    pointer.where = {2400, 1000}; // over the shelf when the close fires
    advanceMilliseconds(3000);
    EXPECT_EQ(controller->panelState(), PanelState::visible);

    pointer.where = {2400, 500};
    controller->scheduleHide(std::chrono::milliseconds(2500));
    advanceMilliseconds(2499);
    EXPECT_EQ(controller->panelState(), PanelState::visible);
    advanceMilliseconds(1);
    EXPECT_EQ(controller->panelState(), PanelState::hiding);
}

TEST_F(PanelOnRequest, FollowsDisplayChangesAndLeavesNothingBehindWhenDestroyed) {
    controller->start();
    openFully();
    displays.displays.front().frame.size.width = 1600;
    displays.displays.front().visibleFrame.size = {1600, 860}; // a 40-point top bar
    localCenter.post(screenParametersDidChange);
    queue.runUntilIdle();
    EXPECT_EQ(panel.frame(), (Rect{{700, 772}, {200, 128}}));
    EXPECT_EQ(controller->layout().topInset(), 40);
    EXPECT_EQ(controller->layout().availableWidth(), 1536);

    // Shown on another display, the open shelf moves there; it follows that display when it
    // moves, and returns to the main display when it goes.
    controller->show(sideDisplay);
    EXPECT_EQ(panel.frame(), (Rect{{2300, 964}, {200, 116}}));
    displays.displays.back().frame.origin.y = -50;
    localCenter.post(screenParametersDidChange);
    advanceMilliseconds(250);
    EXPECT_EQ(panel.frame(), (Rect{{2300, 914}, {200, 116}}));
    displays.displays.pop_back();
    localCenter.post(screenParametersDidChange);
    advanceMilliseconds(250);
    EXPECT_EQ(panel.frame(), (Rect{{700, 772}, {200, 128}}));

    move(farAway);
    advanceMilliseconds(450);
    ASSERT_EQ(controller->panelState(), PanelState::hiding);
    controller.reset();
    localCenter.post(screenParametersDidChange);
    advanceMilliseconds(1000);
    EXPECT_EQ(panel.orderOutCount, 0);
}

} // namespace
} // namespace tidewell::testing
