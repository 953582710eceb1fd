#pragma once

#include "e2e/EndToEndTest.h"
#include "support/SwayDesktop.h"
#include "support/VirtualPointer.h"

#include <memory>
#include <optional>
#include <utility>

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
    // Another client's window offering the paths as a file drag and reporting presses and
    // drops: floating with its top-left corner at the point, else filling the output.
    std::unique_ptr<ChildProcess> startWindow(std::optional<std::pair<int, int>> at,
                                              const std::vector<std::string>& paths = {});
    // Waits until the window's client has written the line.
    static bool waitForLine(const ChildProcess& client, const std::string& line);

    SwayDesktop desktop;
    VirtualPointer hand;
};

} // namespace tidewell::testing
