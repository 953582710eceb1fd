#include "PanelControllerFixture.h"

namespace tidewell::testing {
namespace {

using PanelOpening = PanelControllerFixture;
using PanelClosing = PanelControllerFixture;
using PanelTrigger = PanelControllerFixture;

TEST_F(PanelOpening, EnteringTheTriggerGrowsBackgroundThenContentThenSettles) {
    move(inTrigger);
    EXPECT_EQ(controller->panelState(), PanelState::showing);
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(panel.alpha(), 1);
    EXPECT_EQ(panel.frame(), emptyShelfFrame);
    const ShelfLayout& layout = controller->layout();
    EXPECT_EQ(layout.availableWidth(), 1376);
    EXPECT_EQ(layout.collapsedSize(), (Size{180, 28}));
    EXPECT_EQ(layout.expandedSize(), emptyShelfFrame.size);
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

    const auto framesWhenOpen = panel.frames.size();
    move({725, 885});
    advanceMilliseconds(1000);
    EXPECT_EQ(panel.frames.size(), framesWhenOpen);
    EXPECT_EQ(panel.orderFrontCount, 1);
}

TEST_F(PanelTrigger, DraggedFilesWidenTheTriggerBy56EachSideAndLowerItTo160) {
    const struct {
        Point location;
        unsigned buttons;
        bool offersFiles;
        bool opens;
    } cases[] = {
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
        dragPasteboard.files = offersFiles;
        move(location);
        EXPECT_EQ(controller->panelState() == PanelState::showing, opens);
    }
}

// A pointer monitor may drop moves outside the triggers while the panel is off screen with no
// close armed; from the opening to the end of the close every move counts.
TEST_F(PanelClosing, LeavingArmsOneCloseAndMovesCountEverywhereUntilItHasEnded) {
    int changes = 0;
    const Connection connection = controller->pointerInterestChanged.connect([&] { ++changes; });
    controller->start();
    const PointerInterest hidden = controller->pointerInterest();
    EXPECT_EQ(hidden,
              (PointerInterest{.everywhere = false,
                               .regions = {{{630, 872}, {180, 28}}, {{2310, 1052}, {180, 28}}}}));
    openFully();
    EXPECT_TRUE(controller->pointerInterest().everywhere);
    move(farAway);
    advanceMilliseconds(300);
    move({150, 300}); // does not postpone the close
    advanceMilliseconds(149);
    EXPECT_EQ(controller->panelState(), PanelState::visible);
    advanceMilliseconds(1);
    EXPECT_EQ(controller->panelState(), PanelState::hiding);
    EXPECT_FALSE(controller->layout().isExpanded());
    EXPECT_TRUE(controller->layout().isBackgroundExpanded());

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
}

TEST_F(PanelClosing, ReturningIntoThePanelGrownBy12By10CancelsTheClose) {
    const struct {
        Point returnedTo;
        bool keepsOpen;
    } cases[] = {{{608, 800}, true},    {{831.9, 800}, true}, {{700, 774}, true},
                 {{607.9, 800}, false}, {{832, 800}, false},  {{700, 773.9}, false}};
    for (const auto& [returnedTo, keepsOpen] : cases) {
        SCOPED_TRACE(::testing::Message() << returnedTo.x << "," << returnedTo.y);
        restart();
        openFully();
        move(farAway);
        advanceMilliseconds(200);
        move(returnedTo);
        advanceMilliseconds(1000);
        EXPECT_EQ(controller->panelState() == PanelState::visible, keepsOpen);
    }
}

// Back into the trigger before the background shrank takes the close back; later, the shelf
// opens afresh. Either way it stays on screen.
TEST_F(PanelClosing, ReenteringReopensAtOnceUntilTheBackgroundShrank) {
    for (const auto& [sinceLeaving, atOnce] : {std::pair{500, true}, std::pair{650, false}}) {
        SCOPED_TRACE(sinceLeaving);
        restart();
        openFully();
        move(farAway);
        advanceMilliseconds(sinceLeaving);
        ASSERT_EQ(controller->panelState(), PanelState::hiding);
        move(inTrigger);
        EXPECT_EQ(controller->panelState() == PanelState::visible, atOnce);
        EXPECT_EQ(controller->layout().isExpanded(), atOnce);
        EXPECT_TRUE(controller->layout().isBackgroundExpanded());
        advanceMilliseconds(165);
        EXPECT_TRUE(controller->layout().isExpanded());
        advanceMilliseconds(1000);
        EXPECT_EQ(controller->panelState(), PanelState::visible);
        EXPECT_EQ(panel.orderOutCount, 0);
        EXPECT_TRUE(panel.isVisible());
        EXPECT_TRUE(controller->layout().isBackgroundExpanded());
    }
}

} // namespace
} // namespace tidewell::testing
