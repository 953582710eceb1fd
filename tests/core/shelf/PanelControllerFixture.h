#pragma once

#include "core/shelf/NotchPanelController.h"
#include "support/FakeDisplays.h"
#include "support/FakeKeyValueStore.h"
#include "support/FakePanelWindow.h"
#include "support/FakeWorkspace.h"
#include "support/ItemsFixture.h"

#include <memory>
#include <string>

namespace tidewell::testing {

// A controller on fake windows, displays and time, with a real item store. The main
// display is 1440 x 900 with a 24-point menu bar and no notch: its trigger is 180 x 28
// hanging from the top centre, and an empty shelf there is 200 x 116 at (620, 784).
class PanelControllerFixture : public ItemsFixture {
protected:
    PanelControllerFixture() { restart(); }

    // A fresh controller on a fresh panel and the usual displays, for each row of a table.
    void restart() {
        controller.reset();
        panel = FakePanelWindow();
        displays.displays = {mainDisplay, sideDisplay};
        controller = std::make_unique<NotchPanelController>(NotchPanelController::Services{
            panel, displays, pointer, pointer, queue, localCenter, store, appearance});
    }
    // The pointer monitor reports a position and the queue catches up.
    void move(Point location) {
        pointer.where = location;
        controller->pointerReported(location);
        queue.runUntilIdle();
    }
    void advanceMilliseconds(int milliseconds) {
        queue.advance(std::chrono::milliseconds(milliseconds));
    }
    // Opens the shelf from the trigger and lets the opening finish.
    void openFully() {
        move(inTrigger);
        advanceMilliseconds(300);
        ASSERT_EQ(controller->panelState(), PanelState::visible);
    }
    void pin(const std::string& name) { store.add(root.makeFolder("projects/" + name), true); }

    static constexpr Display mainDisplay{.frame = {{0, 0}, {1440, 900}},
                                         .visibleFrame = {{0, 0}, {1440, 876}}};
    static constexpr Display sideDisplay{.frame = {{1440, 0}, {1920, 1080}},
                                         .visibleFrame = {{1440, 0}, {1920, 1056}}};
    static constexpr Point inTrigger{720, 890};
    static constexpr Point farAway{100, 400};
    static constexpr Rect emptyShelfFrame{{620, 784}, {200, 116}};

    FakePanelWindow panel;
    FakeDisplays displays;
    FakePointer pointer;
    FakeWorkspace workspace;
    FakeKeyValueStore defaults;
    AppearanceSettings appearance{defaults};
    ItemStore store{{database, localCenter, distributedCenter, queue, workspace}};
    std::unique_ptr<NotchPanelController> controller;
};

} // namespace tidewell::testing
