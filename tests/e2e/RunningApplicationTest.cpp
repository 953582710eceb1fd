#include "e2e/RunningApplicationTest.h"

#include <algorithm>
#include <cmath>

namespace tidewell::testing {

using namespace std::chrono_literals;

std::map<std::string, std::string> RunningApplicationTest::applicationEnvironment() const {
    auto variables = environment();
    variables["DISPLAY"] = display.name();
    variables["XDG_DATA_DIRS"] = desktopData;
    variables["XDG_CONFIG_DIRS"] = root.makeFolder("desktop-config");
    variables["QT_QPA_PLATFORM"] = "xcb";
    return variables;
}

void RunningApplicationTest::startApplication(const std::map<std::string, std::string>& variables,
                                              const std::vector<std::string>& launcher) {
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

std::unique_ptr<ChildProcess>
RunningApplicationTest::startDragSource(int x, int y, const std::vector<std::string>& paths) const {
    std::vector<std::string> arguments{"--at", std::to_string(x) + "," + std::to_string(y)};
    arguments.insert(arguments.end(), paths.begin(), paths.end());
    auto source =
        std::make_unique<ChildProcess>(launch(buildFolder() + "/tests/tidewell_drag_source_probe",
                                              arguments, home, applicationEnvironment()));
    EXPECT_TRUE(source->waitForOutput("ready")) << "the drag source did not show its window";
    return source;
}

WindowRect RunningApplicationTest::panelGeometry(int tiles, const WindowRect& screen, int scale) {
    const int shelfWidth = std::max(200, 66 * tiles + 59);
    // Centred on the screen; a half point rounds up.
    const int shelfLeft = static_cast<int>(std::lround((screen.width / scale - shelfWidth) / 2.0));
    return {screen.x + scale * (shelfLeft - shadowMargin), screen.y,
            scale * (shelfWidth + 2 * shadowMargin), scale * (topInset + 88 + shadowMargin)};
}

bool RunningApplicationTest::panelShows(int tiles) {
    return waitUntil([&] { return inspector.rootGeometry(panel) == panelGeometry(tiles); });
}

bool RunningApplicationTest::openShelf() {
    hand.movePointerTo(screenWidth / 2, 3);
    return waitUntilOpen();
}

// The body grows in width and height at once: its lower edge and the left flare, which
// reaches the top edge only at the full width, are both drawn when it has finished. Black
// can cover the whole window for a moment too, as while a compositor that has just started
// takes the screen over: the desktop seen under the flare tells the drawn body from that.
bool RunningApplicationTest::waitUntilOpen(int scale, int top) {
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

std::pair<int, int> RunningApplicationTest::tileCentre(int index) {
    const WindowRect window = inspector.rootGeometry(panel);
    return {window.x + shadowMargin + 14 + 66 * index + 30, topInset + 8 + 31};
}

void RunningApplicationTest::clickTile(int index, unsigned button) {
    const auto [x, y] = tileCentre(index);
    hand.movePointerTo(x, y);
    hand.click(button);
}

void RunningApplicationTest::expectFolderOpened(const std::string& folder) {
    const auto launch = handlers.waitForLaunch(TestHandlers::folderHandlerId);
    ASSERT_TRUE(launch) << "the folder handler was not started";
    EXPECT_TRUE(launch->arguments == std::vector<std::string>{folder} ||
                launch->arguments == std::vector<std::string>{"file://" + folder})
        << (launch->arguments.empty() ? "no arguments" : launch->arguments.front());
}

} // namespace tidewell::testing
