#include "PanelControllerFixture.h"
#include "core/notify/InterfaceNotificationNames.h"

#include <algorithm>

namespace tidewell::testing {

using PanelControllerTest = PanelControllerFixture;

TEST_F(PanelControllerTest, EnteringTheTriggerGrowsBackgroundThenContentThenSettles) {
    EXPECT_EQ(panel.frames.front(), (Rect{{0, 0}, {420, 86}})); // as the panel is made
    move(inTrigger);
    EXPECT_EQ(controller->panelState(), PanelState::showing);
    EXPECT_EQ(panel.alpha(), 1);
    EXPECT_EQ(panel.frame(), emptyShelfFrame);
    const ShelfLayout& layout = controller->layout();
    EXPECT_TRUE(layout.isBackgroundExpanded());

    advanceMilliseconds(164);
    move({700, 880}); // moving inside the trigger restarts nothing
    EXPECT_FALSE(layout.isExpanded());
    advanceMilliseconds(1);
    EXPECT_TRUE(layout.isExpanded());
    advanceMilliseconds(134);
    EXPECT_EQ(controller->panelState(), PanelState::showing);
    advanceMilliseconds(1);
    EXPECT_EQ(controller->panelState(), PanelState::visible);
}

TEST_F(PanelControllerTest, DraggedFilesWidenTheTriggerBy56EachSideAndLowerItTo160) {
    const std::tuple<Point, unsigned, bool, bool> cases[] = {
        {{630, 872}, 0, false, true}, // the trigger's minimum corner belongs to it
        {{629.9, 890}, 0, false, false}, {{810, 890}, 0, false, false},
        {{720, 871.9}, 0, false, false}, {{574, 740}, 1, true, true},
        {{865.9, 740}, 1, true, true},   {{573.9, 740}, 1, true, false},
        {{866, 740}, 1, true, false},    {{720, 739.9}, 1, true, false},
        {{574, 740}, 0, true, false},    {{574, 740}, 1, false, false},
    };
    for (const auto& [location, buttons, offersFiles, opens] : cases) {
        SCOPED_TRACE(::testing::Message() << location.x << "," << location.y << " buttons "
                                          << buttons << " files " << offersFiles);
        restart();
        pointer.buttons = buttons;
        pointer.dragsFiles = offersFiles;
        move(location);
        EXPECT_EQ(controller->panelState() == PanelState::showing, opens);
    }
}

// Moves outside the triggers may be dropped while the panel is off screen with no close armed;
// from the opening to the end of the close all count. The panel grown by 12 by 10 holds it.
TEST_F(PanelControllerTest, LeavingArmsOneCloseAndMovesCountEverywhereUntilItHasEnded) {
    int changes = 0;
    const Connection connection = controller->pointerInterestChanged.connect([&] { ++changes; });
    controller->start();
    const PointerInterest hidden = controller->pointerInterest();
    EXPECT_EQ(hidden,
              (PointerInterest{.everywhere = false,
                               .regions = {{{630, 872}, {180, 28}}, {{2310, 1052}, {180, 28}}}}));
    openFully();
    EXPECT_TRUE(controller->pointerInterest().everywhere);
    move({831.9, 774});
    advanceMilliseconds(1000);
    EXPECT_EQ(controller->panelState(), PanelState::visible);
    move({832, 800});
    advanceMilliseconds(200);
    move({831.9, 774}); // takes the close back
    advanceMilliseconds(100);
    move({607.9, 800});
    advanceMilliseconds(300);
    move({150, 300}); // does not postpone the close
    advanceMilliseconds(149);
    EXPECT_EQ(controller->panelState(), PanelState::visible);
    advanceMilliseconds(1);
    EXPECT_EQ(controller->panelState(), PanelState::hiding);
    EXPECT_FALSE(controller->layout().isExpanded());
    EXPECT_TRUE(controller->layout().isBackgroundExpanded());
    // Back in the trigger before the background has begun to shrink: the close is taken back.
    move({720, 880});
    EXPECT_EQ(controller->panelState(), PanelState::visible);
    EXPECT_TRUE(controller->layout().isExpanded());
    move({150, 300});
    advanceMilliseconds(450);
    ASSERT_EQ(controller->panelState(), PanelState::hiding);

    advanceMilliseconds(100);
    EXPECT_FALSE(controller->layout().isBackgroundExpanded());
    advanceMilliseconds(229);
    EXPECT_TRUE(panel.isVisible());
    EXPECT_TRUE(controller->pointerInterest().everywhere);
    advanceMilliseconds(1);
    EXPECT_FALSE(panel.isVisible());
    EXPECT_EQ(controller->panelState(), PanelState::hidden);
    EXPECT_EQ(controller->pointerInterest(), hidden);
    EXPECT_EQ(changes, 3);
    controller->scheduleHide(std::chrono::milliseconds(450)); // armed while off screen
    EXPECT_TRUE(controller->pointerInterest().everywhere);
    advanceMilliseconds(450);
    EXPECT_EQ(controller->panelState(), PanelState::hidden);
}

TEST_F(PanelControllerTest, HoldsTheShelfOpenAndArmsACloseWhenTrackingEndsOutside) {
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

TEST_F(PanelControllerTest, GrowingAppliesAtOnceAndShrinkingWaitsForTheDrawing) {
    for (const char* name : {"one", "two", "three"})
        pin(name);
    move(inTrigger);
    const Rect three{{720 - 128.5, 784}, {257, 116}};
    const Rect four{{720 - 161.5, 784}, {323, 116}};
    ASSERT_EQ(panel.frame(), three);
    // A pin while opening resizes the drawing at once and the panel once open.
    pin("four");
    queue.runUntilIdle();
    EXPECT_EQ(controller->layout().expandedSize(), four.size);
    EXPECT_EQ(panel.frame(), three);
    advanceMilliseconds(300);
    EXPECT_EQ(panel.frame(), four);

    store.unpin(store.favorites().back().id);
    queue.runUntilIdle();
    EXPECT_EQ(controller->layout().expandedSize(), three.size);
    advanceMilliseconds(249);
    EXPECT_EQ(panel.frame(), four);
    advanceMilliseconds(1);
    EXPECT_EQ(panel.frame(), three);

    // A shrink overtaken by a growth never lands at the smaller frame.
    const auto framesBefore = panel.frames.size();
    pin("five");
    queue.runUntilIdle();
    EXPECT_EQ(panel.frame(), four);
    store.unpin(store.favorites().back().id);
    queue.runUntilIdle();
    advanceMilliseconds(100);
    pin("six");
    queue.runUntilIdle();
    advanceMilliseconds(400);
    EXPECT_EQ(std::count(panel.frames.begin() + framesBefore, panel.frames.end(), three), 0);
    EXPECT_EQ(panel.frames.back(), four);
    EXPECT_EQ(controller->layout().expandedSize(), four.size);
}

// Differences under half a point are rounding, not a new place or size.
TEST_F(PanelControllerTest, HalfAPointMovesOrResizesTheOpenPanel) {
    const Rect frame = mainDisplay.frame;
    const std::tuple<const char*, Rect, Size, bool> cases[] = {
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

// The hiding preference reaches the open panel without reopening it.
TEST_F(PanelControllerTest, FollowsDisplayChangesAndPrivacyAndLeavesNothingBehindWhenDestroyed) {
    controller->start();
    openFully();
    for (const bool hidden : {true, false}) {
        appearance.setHideFromScreenCapture(hidden);
        queue.runUntilIdle();
        EXPECT_EQ(panel.sharingHidden, hidden);
    }
    EXPECT_EQ(panel.orderFrontCount, 1);
    displays.displays.front().frame.size.width = 1600;
    displays.displays.front().visibleFrame.size = {1600, 860}; // a 40-point top bar
    localCenter.post(screenParametersDidChange);
    queue.runUntilIdle();
    EXPECT_EQ(panel.frame(), (Rect{{700, 772}, {200, 128}}));
    EXPECT_EQ(controller->layout().availableWidth(), 1536);

    move(farAway);
    advanceMilliseconds(450);
    ASSERT_EQ(controller->panelState(), PanelState::hiding);
    controller.reset();
    localCenter.post(screenParametersDidChange);
    advanceMilliseconds(1000);
    EXPECT_TRUE(panel.isVisible());
}

} // namespace tidewell::testing
