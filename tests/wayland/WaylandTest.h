#pragma once

#include "e2e/EndToEndTest.h"
#include "support/SwayDesktop.h"
#include "support/VirtualPointer.h"

#include <memory>

namespace tidewell::testing {

// A Wayland desktop of the test's own (sway, headless) with the user's hand on it, and the
// test's home, XDG folders and session bus. Other clients are the drag source probe's small
// orange windows.
class WaylandTest : public EndToEndTest {
protected:
    static constexpr unsigned long backgroundColour = 0x33AA55;
    static constexpr unsigned long windowColour = 0xFF8800;

    explicit WaylandTest(int outputs = 1);

    // What a program of the user's Wayland session has: no X server.
    std::map<std::string, std::string> sessionEnvironment() const;
    // Another client's window over that area of the layout, offering the paths as a file drag
    // and reporting presses and drops.
    std::unique_ptr<ChildProcess> startWindow(int x, int y, int width, int height,
                                              const std::vector<std::string>& paths = {});
    // Waits until the window's client has written the line.
    static bool waitForLine(const ChildProcess& client, const std::string& line);

    SwayDesktop desktop;
    VirtualPointer hand;
};

} // namespace tidewell::testing
