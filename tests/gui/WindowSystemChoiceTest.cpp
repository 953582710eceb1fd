#include "gui/windowsystem/WindowSystemChoice.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

TEST(WindowSystemChoice, TheSessionDecidesTheBackendOrSaysWhyThereIsNone) {
    using WaylandCompositor::absent, WaylandCompositor::withLayerShell,
        WaylandCompositor::withoutLayerShell;
    using enum WindowSystemKind;
    const std::string trigger = "tidewell: window system: X11 under XWayland ";
    const std::string opens = ": the shelf opens from a trigger window";
    struct Case {
        Session session;
        WindowSystemChoice expected;
    };
    for (const auto& [session, expected] : std::vector<Case>{
             {{withLayerShell, true, true},
              {waylandLayerShell, "tidewell: window system: Wayland with layer shell"}},
             {{withLayerShell, false, false},
              {waylandLayerShell, "tidewell: window system: Wayland with layer shell"}},
             {{withoutLayerShell, true, true},
              {x11TriggerWindow, trigger + "(the compositor has no layer shell)" + opens}},
             {{withoutLayerShell, false, true},
              {x11TriggerWindow, trigger + "(the compositor has no layer shell)" + opens}},
             {{withoutLayerShell, true, false},
              {none, "tidewell: no window system: the Wayland compositor has no layer shell "
                     "and DISPLAY is not set for XWayland"}},
             {{absent, true, true},
              {x11TriggerWindow, trigger + "(no Wayland compositor answered)" + opens}},
             {{absent, true, false},
              {none, "tidewell: no window system: no Wayland compositor answered and DISPLAY "
                     "is not set"}},
             {{absent, false, true},
              {x11RawMotion, "tidewell: window system: X11: the shelf follows the pointer's "
                             "moves"}},
             {{absent, false, false},
              {none, "tidewell: no window system: neither WAYLAND_DISPLAY nor DISPLAY is set"}},
         })
        EXPECT_EQ(chooseWindowSystem(session), expected) << expected.line;
}

} // namespace
} // namespace tidewell
