#pragma once

#include "core/items/ItemsJson.h"
#include "support/ChildProcess.h"
#include "support/PrivateSessionBus.h"
#include "support/TemporaryDirectory.h"
#include "support/TestHandlers.h"
#include "support/VirtualDisplay.h"
#include "support/WaitUntil.h"
#include "support/X11TestClient.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace tidewell::testing {

using namespace std::chrono_literals;

// Without a menu bar the shelf hangs this far below the top edge before its tiles begin.
constexpr int topInset = 28;
// The width of the shelf's frame while it shows that many tiles, in points.
inline int shelfWidth(int tiles) {
    return std::max(200, 66 * tiles + 59);
}
// Where the frame begins, centred on a screen that many points wide; a half point rounds up.
inline int shelfLeft(int tiles, int screenWidth = 1920) {
    return static_cast<int>(std::lround((screenWidth - shelfWidth(tiles)) / 2.0));
}
// The centre of a tile, from the frame's left edge and the top of the screen.
inline std::pair<int, int> tileOffset(int index) {
    return {14 + 66 * index + 30, topInset + 8 + 31};
}

// The notifications Tidewell processes broadcast on the session bus, as dbus-monitor hears
// them on the wire (path, interface, member and the name as its one string): only those posted
// once the object is made.
class PostedSignals {
public:
    explicit PostedSignals(const std::map<std::string, std::string>& environment)
        : monitor_({.arguments = {"dbus-monitor", "--session",
                                  "type='signal',interface='com.quorvel.tidewell.Notifications'"},
                    .environment = environment}) {
        // It loses its own name once it has become a monitor.
        if (!monitor_.waitForOutput("member=NameLost"))
            throw std::runtime_error("dbus-monitor did not start: " + monitor_.standardError());
    }

    // The names heard so far, in arrival order.
    std::vector<std::string> received() const {
        const std::string output = monitor_.standardOutput();
        const std::string posted = "path=/com/quorvel/tidewell; "
                                   "interface=com.quorvel.tidewell.Notifications; member=Posted\n"
                                   "   string \"";
        std::vector<std::string> names;
        for (auto at = output.find(posted); at != std::string::npos; at = output.find(posted, at)) {
            at += posted.size();
            names.push_back(output.substr(at, output.find('"', at) - at));
        }
        return names;
    }

    // Whether `count` notifications of that name have arrived within the timeout.
    bool waitFor(const std::string& name, int count = 1,
                 std::chrono::milliseconds timeout = 5s) const {
        return waitUntil([&] { return std::ranges::count(received(), name) >= count; }, timeout);
    }

private:
    ChildProcess monitor_;
};

// The built program run as its user would run it, but with a home, XDG folders and a
// session bus of the test's own, so nothing of the machine's user is read or changed.
class EndToEndTest : public ::testing::Test {
protected:
    EndToEndTest() {
        std::filesystem::permissions(runtimeFolder, std::filesystem::perms::owner_all);
    }

    static std::string buildFolder() {
        const char* folder = std::getenv("TIDEWELL_BUILD_DIR");
        if (!folder || !*folder)
            throw std::runtime_error("TIDEWELL_BUILD_DIR names no build folder; run through ctest");
        return folder;
    }
    static std::string tidePath() { return buildFolder() + "/tide"; }
    static std::string tidewellPath() { return buildFolder() + "/tidewell"; }

    // The isolated environment: PATH of the test, the test's folders and bus, nothing else.
    std::map<std::string, std::string> environment() const {
        const char* path = std::getenv("PATH");
        return {{"PATH", path ? path : "/usr/bin:/bin"},
                {"HOME", home},
                {"XDG_DATA_HOME", dataHome},
                {"XDG_CONFIG_HOME", configHome},
                {"XDG_RUNTIME_DIR", runtimeFolder},
                {"DBUS_SESSION_BUS_ADDRESS", bus.address()}};
    }
    // The program with these arguments, started in that folder, the variables given replacing
    // those of the isolated environment; change it before running.
    ChildProcess::Launch launch(const std::string& program,
                                const std::vector<std::string>& arguments,
                                const std::string& workingDirectory,
                                std::map<std::string, std::string> variables = {}) const {
        std::vector<std::string> command = {program};
        command.insert(command.end(), arguments.begin(), arguments.end());
        variables.merge(environment());
        return {
            .arguments = command, .workingDirectory = workingDirectory, .environment = variables};
    }
    ProcessResult tide(const std::vector<std::string>& arguments,
                       const std::string& workingDirectory) const {
        return ChildProcess::run(launch(tidePath(), arguments, workingDirectory));
    }
    // Checks all that a finished command left behind, and that it finished in time.
    static void expectResult(const ProcessResult& result, const std::string& out,
                             const std::string& errors, int status) {
        EXPECT_FALSE(result.timedOut);
        EXPECT_EQ(result.standardOutput, out);
        EXPECT_EQ(result.standardError, errors);
        EXPECT_EQ(result.status, status);
    }
    // A command of the tool and what it leaves behind.
    struct Step {
        std::vector<std::string> arguments;
        std::string out;
        std::string errors = "";
        int status = 0;
    };
    // Runs the tool's commands one after another in the folder and checks each.
    void walk(const std::vector<Step>& steps, const std::string& workingDirectory,
              const std::map<std::string, std::string>& variables = {}) const {
        for (const Step& step : steps) {
            SCOPED_TRACE(::testing::PrintToString(step.arguments));
            expectResult(
                ChildProcess::run(launch(tidePath(), step.arguments, workingDirectory, variables)),
                step.out, step.errors, step.status);
        }
    }

    // A new folder below the test's projects folder.
    std::string project(const std::string& name) const {
        return root.makeFolder("projects/" + name);
    }
    // Pins a new project folder of this name through the command line.
    std::string addProject(const std::string& name,
                           const std::vector<std::string>& options = {}) const {
        const std::string folder = project(name);
        std::vector<std::string> arguments = {"add", folder};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const ProcessResult result = tide(arguments, home);
        EXPECT_EQ(result.status, 0) << result.standardError;
        return folder;
    }
    // The pinned folders as the shelf orders them: placed ones first, by their place.
    std::vector<std::string> pinnedFolders() const {
        std::vector<NotchItem> pinned = storedItems();
        std::erase_if(pinned, [](const NotchItem& item) { return !item.isFavorite; });
        std::ranges::stable_sort(pinned, {}, [](const NotchItem& item) {
            return std::pair(item.sortOrder.value_or(std::numeric_limits<std::int64_t>::max()),
                             item.createdAt);
        });
        std::vector<std::string> folders;
        for (const NotchItem& item : pinned)
            folders.push_back(item.path);
        return folders;
    }
    std::string dataFolder() const { return dataHome + "/Tidewell"; }
    std::string itemsFile() const { return dataFolder() + "/items.json"; }
    std::string itemsFileBytes() const { return readFile(itemsFile()).value_or(""); }
    void writeItemsFile(const std::string& bytes) const {
        std::filesystem::create_directories(dataFolder());
        std::ofstream(itemsFile(), std::ios::binary) << bytes;
    }
    // The records of the items file; none when it cannot be read.
    std::vector<NotchItem> storedItems() const {
        return ItemsJson::decode(itemsFileBytes()).value_or(std::vector<NotchItem>());
    }

    // The names in a folder, sorted.
    static std::vector<std::string> entries(const std::string& folder) {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            names.push_back(entry.path().filename());
        std::ranges::sort(names);
        return names;
    }
    // Whether a process works in the folder: the shell of a terminal opened there.
    static bool isWorkedIn(const std::string& folder) {
        return std::ranges::any_of(
            std::filesystem::directory_iterator("/proc"), [&](const auto& process) {
                std::error_code unreadable;
                return std::filesystem::read_symlink(process.path() / "cwd", unreadable) == folder;
            });
    }

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
    static constexpr int shadowMargin = 16;

    // On a display of the test's own, by default one 1920 x 1080 screen.
    explicit RunningApplicationTest(const std::vector<Monitor>& monitors = {}, int width = 1920,
                                    int height = 1080)
        : display(monitors, width, height) {}

    std::map<std::string, std::string> applicationEnvironment() const {
        auto variables = environment();
        variables["DISPLAY"] = display.name();
        variables["XDG_DATA_DIRS"] = desktopData;
        variables["XDG_CONFIG_DIRS"] = root.makeFolder("desktop-config");
        variables["QT_QPA_PLATFORM"] = "xcb";
        return variables;
    }
    // Starts the application, with these variables added to its environment, and waits until
    // its panel window exists; fails the test if not. A launcher given runs the program, which
    // it takes as its last argument, and reads what the test writes to its input.
    void startApplication(const std::map<std::string, std::string>& variables = {},
                          const std::vector<std::string>& launcher = {}) {
        ChildProcess::Launch start = launch(tidewellPath(), {}, home, variables);
        start.environment.merge(applicationEnvironment());
        start.arguments.insert(start.arguments.begin(), launcher.begin(), launcher.end());
        start.takesInput = !launcher.empty();
        application = std::make_unique<ChildProcess>(start);
        std::optional<unsigned long> window;
        ASSERT_TRUE(waitUntil(
            [&] { return (window = inspector.findWindow("Tidewell Shelf")).has_value(); }, 15s))
            << "the panel window did not appear";
        panel = *window;
    }
    // Another application's window at the point, offering the paths as a file drag.
    std::unique_ptr<ChildProcess> startDragSource(int x, int y,
                                                  const std::vector<std::string>& paths) const {
        std::vector<std::string> arguments{"--at", std::to_string(x) + "," + std::to_string(y)};
        arguments.insert(arguments.end(), paths.begin(), paths.end());
        auto source = std::make_unique<ChildProcess>(
            launch(buildFolder() + "/tests/tidewell_drag_source_probe", arguments, home,
                   applicationEnvironment()));
        EXPECT_TRUE(source->waitForOutput("ready")) << "the drag source did not show its window";
        return source;
    }

    // Where the panel window lies while it shows that many tiles on the screen, whose
    // device pixels are `scale` times its points.
    static WindowRect panelGeometry(int tiles, const WindowRect& screen = {0, 0, 1920, 1080},
                                    int scale = 1) {
        return {screen.x + scale * (shelfLeft(tiles, screen.width / scale) - shadowMargin),
                screen.y, scale * (shelfWidth(tiles) + 2 * shadowMargin),
                scale * (topInset + 88 + shadowMargin)};
    }
    bool isShelfShown() { return inspector.isViewable(panel); }
    // Waits until the panel lies where it does with that many tiles.
    bool panelShows(int tiles) {
        return waitUntil([&] { return inspector.rootGeometry(panel) == panelGeometry(tiles); });
    }
    // Moves the pointer into the trigger at the top centre and waits until the shelf is open.
    bool openShelf() {
        hand.movePointerTo(screenWidth / 2, 3);
        return waitUntilOpen();
    }
    // Waits until the shelf has grown to its lower edge and its left flare (both drawn only at
    // the full size), and its first icon has faded in and stays as it is: only then does it
    // follow changes and take clicks. Black can cover the whole window for a moment, as while a
    // compositor takes the screen over: the desktop under the flare tells the body from that.
    // On the screen whose top row is `top`, at `scale` device pixels a point.
    bool waitUntilOpen(int scale = 1, int top = 0) {
        // In points from the body's top-left corner.
        const auto pixel = [&](int x, int y) {
            const int frameLeft = inspector.rootGeometry(panel).x + scale * shadowMargin;
            return inspector.screenPixel(frameLeft + scale * x, top + scale * y);
        };
        return waitUntil([&] {
                   return isShelfShown() && pixel(38, topInset + 86) == 0x000000 &&
                          pixel(6, 0) == 0x000000 && pixel(6, 6) == desktopColour;
               }) &&
               waitUntilSteady([&] { return pixel(44, 58); }); // the first icon
    }
    // Where the tile's centre lies on the screen while the shelf is open with three tiles or
    // more (fewer are centred in the shelf's least width).
    std::pair<int, int> tileCentre(int index) {
        const auto [x, y] = tileOffset(index);
        return {inspector.rootGeometry(panel).x + shadowMargin + x, y};
    }
    // Moves the pointer onto the tile and clicks it with the button.
    void clickTile(int index, unsigned button) {
        const auto [x, y] = tileCentre(index);
        hand.movePointerTo(x, y);
        hand.click(button);
    }
    // The folder handler was started for the folder, given as a path or a file URI.
    void expectFolderOpened(const std::string& folder) {
        const auto launch = handlers.waitForLaunch(TestHandlers::folderHandlerId);
        ASSERT_TRUE(launch) << "the folder handler was not started";
        EXPECT_TRUE(launch->arguments == std::vector<std::string>{folder} ||
                    launch->arguments == std::vector<std::string>{"file://" + folder})
            << (launch->arguments.empty() ? "no arguments" : launch->arguments.front());
    }

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
