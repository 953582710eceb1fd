#pragma once

#include "e2e/EndToEndTest.h"
#include "support/SwayDesktop.h"

#include <memory>
#include <utility>

namespace tidewell::testing {

// The application started as its user starts it in a Wayland session (WAYLAND_DISPLAY set, no
// X server at all) on a desktop of the test's own, with the test's home, XDG folders and bus.
// What it shows is read from screenshots: the shelf hangs from the top centre of an output, a
// black body with one tile per pinned project. Other clients are the drag source probe's
// orange windows.
class WaylandTest : public EndToEndTest {
protected:
    static constexpr unsigned long backgroundColour = 0x33AA55;
    static constexpr unsigned long windowColour = 0xFF8800;
    // Without a menu bar the shelf hangs this far below the top edge before its tiles begin.
    static constexpr int topInset = 28;

    // Another client's window over that area of the layout, offering the paths as a file drag
    // and reporting presses and drops.
    std::unique_ptr<ChildProcess> startWindow(int x, int y, int width, int height,
                                              const std::vector<std::string>& paths = {});
    // Waits until the client has written the line.
    static bool waitForLine(const ChildProcess& client, const std::string& line);
    void startApplication();

    static int centreX(int output) {
        return output * SwayDesktop::outputWidth + SwayDesktop::outputWidth / 2;
    }
    // Where the tile's centre lies while the shelf shows that many tiles (three or more).
    static std::pair<int, int> tileCentre(int output, int tiles, int index);
    // The width of the black body in the output's row above the tiles, through the point dx
    // from its centre; 0 without one.
    int drawnBodyWidth(int output, int dx = 0) const;
    // Whether the output shows the whole body of the shelf with that many tiles.
    bool showsTiles(int output, int tiles, int dx = 0) const;
    bool waitUntilOpen(int output, int tiles);
    // Waits until nothing is drawn at the top of the output but what lies below the shelf.
    bool waitUntilClosed(int output, unsigned long below = backgroundColour);
    // Waits until the first tile's icon has faded in and stays as it is: only then does the
    // open shelf follow changes and take clicks.
    bool waitUntilSettled(int output, int tiles);
    // The application's surfaces appear a while after it started; until then the pointer at
    // the top does nothing. Moves the pointer to the point until the shelf opens.
    bool openOnceStarted(int x, int y, int tiles);

    SwayDesktop desktop{runtimeFolder, buildFolder() + "/tests/tidewell_virtual_pointer_probe",
                        backgroundColour};
    std::unique_ptr<ChildProcess> application;

private:
    ChildProcess::Launch sessionLaunch(const std::vector<std::string>& arguments) const;
};

} // namespace tidewell::testing
