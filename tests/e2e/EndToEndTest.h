#pragma once

#include "core/items/NotchItem.h"
#include "support/ChildProcess.h"
#include "support/PrivateSessionBus.h"
#include "support/TemporaryDirectory.h"
#include "support/TestHandlers.h"
#include "support/VirtualDisplay.h"
#include "support/WaitUntil.h"
#include "support/X11TestClient.h"

#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tidewell::testing {

// The notifications Tidewell processes broadcast on the session bus, as dbus-monitor hears
// them on the wire (path, interface, member and the name as its one string): only those posted
// once the object is made.
class PostedSignals {
public:
    explicit PostedSignals(const std::map<std::string, std::string>& environment);
    // The names heard so far, in arrival order.
    std::vector<std::string> received() const;
    // Whether `count` notifications of that name have arrived within the timeout.
    bool waitFor(const std::string& name, int count = 1,
                 std::chrono::milliseconds timeout = std::chrono::seconds(5)) const;

private:
    ChildProcess monitor_;
};

// The built program run as its user would run it, but with a home, XDG folders and a
// session bus of the test's own, so nothing of the machine's user is read or changed.
class EndToEndTest : public ::testing::Test {
protected:
    EndToEndTest();

    static std::string buildFolder();
    static std::string tidePath() { return buildFolder() + "/tide"; }
    static std::string tidewellPath() { return buildFolder() + "/tidewell"; }

    // The isolated environment: PATH of the test, the test's folders and bus, nothing else.
    std::map<std::string, std::string> environment() const;
    // The program with these arguments, started in that folder, the variables given replacing
    // those of the isolated environment; change it before running.
    ChildProcess::Launch launch(const std::string& program,
                                const std::vector<std::string>& arguments,
                                const std::string& workingDirectory,
                                std::map<std::string, std::string> variables = {}) const;
    ProcessResult tide(const std::vector<std::string>& arguments,
                       const std::string& workingDirectory) const;
    // Checks all that a finished command left behind, and that it finished in time.
    static void expectResult(const ProcessResult& result, const std::string& out,
                             const std::string& errors, int status);
    // A command of the tool and what it leaves behind.
    struct Step {
        std::vector<std::string> arguments;
        std::string out;
        std::string errors = "";
        int status = 0;
    };
    // Runs the tool's commands one after another in the folder and checks each.
    void walk(const std::vector<Step>& steps, const std::string& workingDirectory,
              const std::map<std::string, std::string>& variables = {}) const;

    // A new folder below the test's projects folder.
    std::string project(const std::string& name) const;
    // Pins a new project folder of this name through the command line.
    std::string addProject(const std::string& name, const std::vector<std::string>& options = {});
    // The pinned folders as the shelf orders them: placed ones first, by their place.
    std::vector<std::string> pinnedFolders() const;
    std::string dataFolder() const { return dataHome + "/Tidewell"; }
    std::string itemsFile() const { return dataFolder() + "/items.json"; }
    std::string itemsFileBytes() const { return readFile(itemsFile()).value_or(""); }
    void writeItemsFile(const std::string& bytes) const;
    // The records of the items file; none when it cannot be read.
    std::vector<NotchItem> storedItems() const;

    static std::optional<std::string> readFile(const std::string& path);
    // The names in a folder, sorted.
    static std::vector<std::string> entries(const std::string& folder);
    // Whether a process works in the folder: the shell of a terminal opened there.
    static bool isWorkedIn(const std::string& folder);

    TemporaryDirectory root;
    PrivateSessionBus bus;
    std::string home = root.makeFolder("home");
    std::string dataHome = root.makeFolder("data");
    std::string configHome = root.makeFolder("config");
    std::string runtimeFolder = root.makeFolder("runtime");
};

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
