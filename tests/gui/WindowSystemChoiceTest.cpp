#include "gui/windowsystem/WindowSystemChoice.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

// The sessions the end-to-end tests start (X11 alone, a compositor without layer shell, with
// or without DISPLAY, none at all) are left to them; these are the rest, and the line of a
// compositor with layer shell, which the Wayland test does not read.
TEST(WindowSystemChoice, TheSessionDecidesTheBackendOrSaysWhyThereIsNone) {
    using WaylandCompositor::absent, WaylandCompositor::withLayerShell;
    using enum WindowSystemKind;
    const std::string trigger = "tidewell: window system: X11 under XWayland ";
    const std::string opens = ": the shelf opens from a trigger window";
    for (const auto& [session, expected] : std::vector<std::pair<Session, WindowSystemChoice>>{
             {{withLayerShell, false, false},
              {waylandLayerShell, "tidewell: window system: Wayland with layer shell"}},
             {{absent, true, true},
              {x11TriggerWindow, trigger + "(no Wayland compositor answered)" + opens}},
             {{absent, true, false},
              {none, "tidewell: no window system: no Wayland compositor answered and DISPLAY "
                     "is not set"}},
         })
        EXPECT_EQ(chooseWindowSystem(session), expected) << expected.line;
}

} // namespace
} // namespace tidewell
