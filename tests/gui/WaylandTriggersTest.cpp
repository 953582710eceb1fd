#include "gui/windowsystem/wayland/WaylandTriggers.h"

#include <QWindow>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

// On the 1920 x 1080 test display, a trigger 200 x 32 points at the top centre, and one on
// no display.
const Rect topCentre{{860, 1048}, {200, 32}};
const Rect offDisplay{{5000, 1048}, {200, 32}};

TEST(WaylandTriggers, EachDisplayHasItsOpenTriggerUntilEveryMoveCounts) {
    std::vector<QWindow*> windows;
    WaylandTriggers triggers([&](QWindow& window) { windows.push_back(&window); });
    ASSERT_EQ(windows.size(), 1u);
    const QWindow& window = *windows.front();
    EXPECT_FALSE(window.isVisible()) << "no trigger known yet";

    struct Case {
        const char* name;
        PointerInterest interest;
        bool visible;
    };
    for (const auto& [name, interest, visible] : std::vector<Case>{
             {"the trigger", {.everywhere = false, .regions = {topCentre}}, true},
             // The shelf's own window is above it then: the trigger stays as it was.
             {"every move", {.everywhere = true, .regions = {}}, true},
             {"a trigger on another display",
              {.everywhere = false, .regions = {offDisplay}},
              false},
         }) {
        triggers.setInterest(interest);
        EXPECT_EQ(window.isVisible(), visible) << name;
        EXPECT_EQ(window.geometry(), QRect(860, 0, 200, 32)) << name;
    }
}

} // namespace
} // namespace tidewell
