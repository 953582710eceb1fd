#include "PanelControllerFixture.h"
#include "core/notify/InterfaceNotificationNames.h"

namespace tidewell::testing {
namespace {

using PanelMenuTracking = PanelControllerFixture;
using PanelResizing = PanelControllerFixture;
using PanelPrivacy = PanelControllerFixture;
using PanelOnRequest = PanelControllerFixture;

TEST_F(PanelMenuTracking, HoldsTheShelfOpenAndArmsACloseWhenTrackingEndsOutside) {
    const auto track = [this](bool begins, Point pointerAt) {
        pointer.where = pointerAt;
        localCenter.post(begins ? menuDidBeginTracking : menuDidEndTracking);
        queue.runUntilIdle();
    };
    openFully();
    move(farAway); // arms a close, which the menu takes back
    track(true, farAway);
    move({150, 300}); // arms nothing while a menu is open
    controller->scheduleHide(std::chrono::milliseconds(450));
    advanceMilliseconds(2000);
    track(false, {700, 800}); // ends over the shelf: arms nothing
    advanceMilliseconds(2000);
    EXPECT_EQ(controller->panelState(), PanelState::visible);

    track(true, farAway);
    track(false, farAway);
    advanceMilliseconds(449);
    EXPECT_EQ(controller->panelState(), PanelState::visible);
    advanceMilliseconds(1);
    EXPECT_EQ(controller->panelState(), PanelState::hiding);
}

TEST_F(PanelResizing, GrowingAppliesAtOnceAndShrinkingWaitsForTheDrawing) {
    for (const char* name : {"one", "two", "three"})
        pin(name);
    openFully();
    const Rect three{{720 - 128.5, 784}, {257, 116}};
    const Rect four{{720 - 161.5, 784}, {323, 116}};
    ASSERT_EQ(panel.frame(), three);

    pin("four");
    queue.runUntilIdle();
    EXPECT_EQ(panel.frame(), four);
    EXPECT_EQ(controller->layout().expandedSize(), four.size);

    store.unpin(store.favorites().back().id);
    queue.runUntilIdle();
    EXPECT_EQ(controller->layout().expandedSize(), three.size);
    advanceMilliseconds(249);
    EXPECT_EQ(panel.frame(), four);
    advanceMilliseconds(1);
    EXPECT_EQ(panel.frame(), three);

    // A shrink overtaken by a growth never lands at the smaller frame.
    pin("five");
    queue.runUntilIdle();
    store.unpin(store.favorites().back().id);
    queue.runUntilIdle();
    advanceMilliseconds(100);
    pin("six");
    queue.runUntilIdle();
    for (int step = 0; step < 4; ++step) {
        advanceMilliseconds(100);
        EXPECT_EQ(panel.frame(), four) << "after " << 200 + step * 100 << " ms";
    }
    EXPECT_EQ(controller->layout().expandedSize(), four.size);
}

TEST_F(PanelResizing, APinWhileOpeningResizesTheDrawingAndThePanelOnceOpen) {
    for (const char* name : {"one", "two", "three"})
        pin(name);
    move(inTrigger);
    const Rect three = panel.frame();
    pin("four");
    queue.runUntilIdle();
    EXPECT_EQ(controller->layout().expandedSize(), (Size{323, 116}));
    EXPECT_EQ(panel.frame(), three);
    advanceMilliseconds(300);
    EXPECT_EQ(panel.frame(), (Rect{{720 - 161.5, 784}, {323, 116}}));
}

// Differences under half a point are rounding, not a new place or size.
TEST_F(PanelResizing, HalfAPointMovesOrResizesTheOpenPanel) {
    const Rect frame = mainDisplay.frame;
    const struct {
        const char* change;
        Rect displayFrame;
        Size drawing;
        bool applies;
    } cases[] = {
        {"display 0.5 lower", {{0, -0.5}, frame.size}, emptyShelfFrame.size, true},
        {"display 0.4 lower", {{0, -0.4}, frame.size}, emptyShelfFrame.size, false},
        {"display 1 wider", {{0, 0}, {1441, 900}}, emptyShelfFrame.size, true},
        {"drawing 0.5 wider", frame, {200.5, 116}, true},
        {"drawing 0.5 taller", frame, {200, 116.5}, true},
        {"drawing 0.4 wider and taller", frame, {200.4, 116.4}, false},
    };
    for (const auto& [change, displayFrame, drawing, applies] : cases) {
        SCOPED_TRACE(change);
        restart();
        controller->start();
        openFully();
        const auto framesBefore = panel.frames.size();
        displays.displays.front().frame = displayFrame;
        controller->layout().setExpandedSize(drawing);
        localCenter.post(screenParametersDidChange);
        queue.runUntilIdle();
        EXPECT_EQ(panel.frames.size() > framesBefore, applies);
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

    appearance.setHideFromScreenCapture(true);
    restart();
    EXPECT_TRUE(panel.sharingHidden);
}

TEST_F(PanelOnRequest, FollowsDisplayChangesAndLeavesNothingBehindWhenDestroyed) {
    controller->start();
    openFully();
    displays.displays.front().frame.size.width = 1600;
    displays.displays.front().visibleFrame.size = {1600, 860}; // a 40-point top bar
    localCenter.post(screenParametersDidChange);
    queue.runUntilIdle();
    EXPECT_EQ(panel.frame(), (Rect{{700, 772}, {200, 128}}));
    EXPECT_EQ(controller->layout().expandedSize(), (Size{200, 128}));
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
