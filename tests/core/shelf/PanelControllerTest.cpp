#include "PanelControllerFixture.h"

namespace tidewell::testing {
namespace {

using PanelOpening = PanelControllerFixture;
using PanelClosing = PanelControllerFixture;

TEST_F(PanelOpening, EnteringTheTriggerGrowsBackgroundThenContentThenSettles) {
    move(inTrigger);
    EXPECT_EQ(controller->panelState(), PanelState::showing);
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(panel.alpha(), 1);
    EXPECT_EQ(panel.frame(), emptyShelfFrame);
    const ShelfLayout& layout = controller->layout();
    EXPECT_EQ(layout.topInset(), 28);
    EXPECT_EQ(layout.availableWidth(), 1376);
    EXPECT_EQ(layout.collapsedSize(), (Size{180, 28}));
    EXPECT_EQ(layout.expandedSize(), emptyShelfFrame.size);
    EXPECT_TRUE(layout.isBackgroundExpanded());
    EXPECT_FALSE(layout.isExpanded());

    advanceMilliseconds(164);
    EXPECT_FALSE(layout.isExpanded());
    advanceMilliseconds(1);
    EXPECT_TRUE(layout.isExpanded());
    advanceMilliseconds(134);
    EXPECT_EQ(controller->panelState(), PanelState::showing);
    advanceMilliseconds(1);
    EXPECT_EQ(controller->panelState(), PanelState::visible);
}

TEST_F(PanelOpening, MovingInsideTheTriggerNeitherRestartsNorResizes) {
    move(inTrigger);
    advanceMilliseconds(100);
    move({700, 880});
    advanceMilliseconds(65);
    EXPECT_TRUE(controller->layout().isExpanded()); // 0.165 s after the first entry
    move({740, 895});
    advanceMilliseconds(135);
    EXPECT_EQ(controller->panelState(), PanelState::visible); // 0.3 s after the first entry
    EXPECT_EQ(panel.orderFrontCount, 1);

    const auto framesWhenOpen = panel.frames.size();
    move({725, 885});
    advanceMilliseconds(1000);
    EXPECT_EQ(panel.frames.size(), framesWhenOpen);
    EXPECT_EQ(controller->panelState(), PanelState::visible);
}

TEST_F(PanelOpening, PointsOutsideTheTriggerOpenNothing) {
    for (const Point outside : {Point{629.9, 890}, Point{810, 890}, Point{720, 871.9}, farAway}) {
        move(outside);
        EXPECT_EQ(controller->panelState(), PanelState::hidden) << outside.x << "," << outside.y;
    }
    move({630, 872}); // the trigger's minimum corner belongs to it
    EXPECT_EQ(controller->panelState(), PanelState::showing);
}

TEST_F(PanelClosing, LeavingArmsOneCloseThatFurtherMovementDoesNotPostpone) {
    openFully();
    move(farAway);
    advanceMilliseconds(300);
    move({150, 300});
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
    advanceMilliseconds(1);
    EXPECT_FALSE(panel.isVisible());
    EXPECT_EQ(controller->panelState(), PanelState::hidden);
    EXPECT_EQ(panel.alpha(), 1);
}

// A pointer monitor may drop moves outside the triggers while the panel is off screen with no
// close armed; from the opening to the end of the close every move counts.
TEST_F(PanelClosing, MovesCountEverywhereFromTheOpeningUntilTheCloseHasEnded) {
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
    advanceMilliseconds(779);
    EXPECT_TRUE(controller->pointerInterest().everywhere);
    advanceMilliseconds(1);
    EXPECT_EQ(controller->pointerInterest(), hidden);
    EXPECT_EQ(changes, 3);
}

TEST_F(PanelClosing, ReturningIntoThePanelGrownBy12By10CancelsTheClose) {
    const struct {
        Point returnedTo;
        bool keepsOpen;
    } cases[] = {{{608, 800}, true},    {{831.9, 800}, true}, {{700, 774}, true},
                 {{607.9, 800}, false}, {{832, 800}, false},  {{700, 773.9}, false}};
    for (const auto& [returnedTo, keepsOpen] : cases) {
        SCOPED_TRACE(::testing::Message() << returnedTo.x << "," << returnedTo.y);
        controller.reset();
        panel = FakePanelWindow();
        controller = makeController();
        openFully();
        move(farAway);
        advanceMilliseconds(200);
        move(returnedTo);
        advanceMilliseconds(1000);
        EXPECT_EQ(controller->panelState() == PanelState::visible, keepsOpen);
    }
}

TEST_F(PanelClosing, ReenteringBeforeTheBackgroundShrankReopensAtOnce) {
    openFully();
    move(farAway);
    advanceMilliseconds(450 + 50);
    ASSERT_EQ(controller->panelState(), PanelState::hiding);
    move(inTrigger);
    EXPECT_EQ(controller->panelState(), PanelState::visible);
    EXPECT_TRUE(controller->layout().isExpanded());
    EXPECT_TRUE(controller->layout().isBackgroundExpanded());
    advanceMilliseconds(1000);
    EXPECT_EQ(panel.orderOutCount, 0);
    EXPECT_TRUE(panel.isVisible());
    EXPECT_TRUE(controller->layout().isBackgroundExpanded());
}

TEST_F(PanelClosing, ReenteringAfterTheBackgroundShrankRunsAFullOpening) {
    openFully();
    move(farAway);
    advanceMilliseconds(450 + 200);
    ASSERT_FALSE(controller->layout().isBackgroundExpanded());
    move(inTrigger);
    EXPECT_EQ(controller->panelState(), PanelState::showing);
    EXPECT_FALSE(controller->layout().isExpanded());
    advanceMilliseconds(165);
    EXPECT_TRUE(controller->layout().isExpanded());
    advanceMilliseconds(135);
    EXPECT_EQ(controller->panelState(), PanelState::visible);
    advanceMilliseconds(1000);
    EXPECT_EQ(panel.orderOutCount, 0);
    EXPECT_TRUE(panel.isVisible());
}

} // namespace
} // namespace tidewell::testing
