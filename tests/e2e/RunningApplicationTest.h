#pragma once

#include "e2e/EndToEndTest.h"
#include "support/TestHandlers.h"
#include "support/VirtualDisplay.h"
#include "support/X11TestClient.h"

#include <memory>

namespace tidewell::testing {

// The application running on a virtual display of the test's own (Xvfb and openbox) over a
// desktop of one known colour, with a test handler as the desktop's only folder opener. The
// user's hand is another X client that moves the pointer, clicks and types through XTest.
class RunningApplicationTest : public EndToEndTest {
protected:
    static constexpr unsigned long desktopColour = 0x3366CC;
    static constexpr int screenWidth = 1920;
    // Without a menu bar the shelf hangs this far below the top edge before its tiles begin.
    static constexpr int topInset = 28;
    static constexpr int shadowMargin = 16;

    // On a display of the test's own, by default one 1920 x 1080 screen.
    explicit RunningApplicationTest(const std::vector<Monitor>& monitors = {}, int width = 1920,
                                    int height = 1080)
        : display(monitors, width, height) {}

    std::map<std::string, std::string> applicationEnvironment() const;
    // Starts the application, with these variables added to its environment, and waits until
    // its panel window exists; fails the test if not. A launcher given runs the program, which
    // it takes as its last argument, and reads what the test writes to its input.
    void startApplication(const std::map<std::string, std::string>& variables = {},
                          const std::vector<std::string>& launcher = {});
    // Another application's window at the point, offering the paths as a file drag.
    std::unique_ptr<ChildProcess> startDragSource(int x, int y,
                                                  const std::vector<std::string>& paths) const;

    // Where the panel window lies while it shows that many tiles on the screen, whose
    // device pixels are `scale` times its points.
    static WindowRect panelGeometry(int tiles, const WindowRect& screen = {0, 0, 1920, 1080},
                                    int scale = 1);
    bool isShelfShown() { return inspector.isViewable(panel); }
    // Waits until the panel lies where it does with that many tiles.
    bool panelShows(int tiles);
    // Moves the pointer into the trigger at the top centre and waits until the shelf is open.
    bool openShelf();
    // Waits until the shelf has opened, drawn down to its lower edge, and its first icon has
    // faded in and stays as it is: only then does the shelf follow changes and take clicks. On
    // the screen whose top row is `top`, at `scale` device pixels a point.
    bool waitUntilOpen(int scale = 1, int top = 0);
    // Where the tile's centre lies on the screen while the shelf is open with three tiles or
    // more (fewer are centred in the shelf's least width).
    std::pair<int, int> tileCentre(int index);
    // Moves the pointer onto the tile and clicks it with the button.
    void clickTile(int index, unsigned button);
    // The folder handler was started for the folder, given as a path or a file URI.
    void expectFolderOpened(const std::string& folder);

    VirtualDisplay display;
    X11TestClient hand;
    X11TestClient inspector;
    unsigned long desktop = hand.createDesktop(desktopColour);
    std::string desktopData = root.makeFolder("desktop-data");
    TestHandlers handlers{root.makeFolder("handlers"), desktopData, configHome};
    std::unique_ptr<ChildProcess> application;
    unsigned long panel = 0;
};

} // namespace tidewell::testing
