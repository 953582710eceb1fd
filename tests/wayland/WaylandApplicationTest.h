#pragma once

#include "wayland/WaylandTest.h"

#include <algorithm>
#include <utility>

namespace tidewell::testing {

// The application started as its user starts it in a Wayland session: WAYLAND_DISPLAY set, no
// X server at all. What it shows is read from screenshots: the shelf hangs from the top
// centre of an output, a black body with one tile per pinned project.
class WaylandApplicationTest : public WaylandTest {
protected:
    static constexpr unsigned long black = 0x000000;
    // Without a menu bar the shelf hangs this far below the top edge before its tiles begin.
    static constexpr int topInset = 28;
    // A row of the body above the tiles, below the pointer at the top edge.
    static constexpr int bodyRow = topInset + 4;

    using WaylandTest::WaylandTest;

    void startApplication();
    static int centreX(int output) {
        return output * SwayDesktop::outputWidth + SwayDesktop::outputWidth / 2;
    }
    // The width of the body of the shelf showing that many tiles.
    static int bodyWidth(int tiles) { return std::max(200, 66 * tiles + 59) - 16; }
    // Where the tile's centre lies while the shelf shows that many tiles (three or more).
    static std::pair<int, int> tileCentre(int output, int tiles, int index);

    // The width of the black body through the point of the output's body row, or 0.
    int drawnBodyWidth(const Screenshot& shot, int output, int dx = 0) const;
    // Waits until the output shows the whole body of the shelf with that many tiles: the
    // opening has run its course.
    bool waitUntilOpen(int output, int tiles);
    // Waits until nothing is drawn at the top of the output but what lies below the shelf.
    bool waitUntilClosed(int output, unsigned long below = backgroundColour);
    // Waits until the first tile's icon has faded in and stays as it is: only then does the
    // open shelf follow changes and take clicks.
    bool waitUntilSettled(int output, int tiles);
    // The application's surfaces appear a while after it started; until then the pointer at
    // the top does nothing. Moves the pointer there until the shelf opens.
    bool openOnceStarted(int x, int y, int tiles);

    std::unique_ptr<ChildProcess> application;
};

} // namespace tidewell::testing
