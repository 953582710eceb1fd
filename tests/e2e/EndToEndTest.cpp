#include "e2e/EndToEndTest.h"

#include "core/items/ItemsJson.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>
#include <stdexcept>

namespace tidewell::testing {

using namespace std::chrono_literals;

PostedSignals::PostedSignals(const std::map<std::string, std::string>& environment)
    : monitor_({.arguments = {"dbus-monitor", "--session",
                              "type='signal',interface='com.quorvel.tidewell.Notifications'"},
                .environment = environment}) {
    // It loses its own name once it has become a monitor.
    if (!monitor_.waitForOutput("member=NameLost"))
        throw std::runtime_error("dbus-monitor did not start: " + monitor_.standardError());
}

std::vector<std::string> PostedSignals::received() const {
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

bool PostedSignals::waitFor(const std::string& name, int count,
                            std::chrono::milliseconds timeout) const {
    return waitUntil([&] { return std::ranges::count(received(), name) >= count; }, timeout);
}

EndToEndTest::EndToEndTest() {
    std::filesystem::permissions(runtimeFolder, std::filesystem::perms::owner_all);
}

std::string EndToEndTest::buildFolder() {
    const char* folder = std::getenv("TIDEWELL_BUILD_DIR");
    if (!folder || !*folder)
        throw std::runtime_error("TIDEWELL_BUILD_DIR names no build folder; run through ctest");
    return folder;
}

std::map<std::string, std::string> EndToEndTest::environment() const {
    const char* path = std::getenv("PATH");
    return {{"PATH", path ? path : "/usr/bin:/bin"},
            {"HOME", home},
            {"XDG_DATA_HOME", dataHome},
            {"XDG_CONFIG_HOME", configHome},
            {"XDG_RUNTIME_DIR", runtimeFolder},
            {"DBUS_SESSION_BUS_ADDRESS", bus.address()}};
}

ChildProcess::Launch EndToEndTest::launch(const std::string& program,
                                          const std::vector<std::string>& arguments,
                                          const std::string& workingDirectory,
                                          std::map<std::string, std::string> variables) const {
    std::vector<std::string> command = {program};
    command.insert(command.end(), arguments.begin(), arguments.end());
    variables.merge(environment());
    return {.arguments = command, .workingDirectory = workingDirectory, .environment = variables};
}

ProcessResult EndToEndTest::tide(const std::vector<std::string>& arguments,
                                 const std::string& workingDirectory) const {
    return ChildProcess::run(launch(tidePath(), arguments, workingDirectory));
}

void EndToEndTest::expectResult(const ProcessResult& result, const std::string& out,
                                const std::string& errors, int status) {
    EXPECT_FALSE(result.timedOut);
    EXPECT_EQ(result.standardOutput, out);
    EXPECT_EQ(result.standardError, errors);
    EXPECT_EQ(result.status, status);
}

void EndToEndTest::walk(const std::vector<Step>& steps, const std::string& workingDirectory,
                        const std::map<std::string, std::string>& variables) const {
    for (const Step& step : steps) {
        SCOPED_TRACE(::testing::PrintToString(step.arguments));
        expectResult(
            ChildProcess::run(launch(tidePath(), step.arguments, workingDirectory, variables)),
            step.out, step.errors, step.status);
    }
}

std::string EndToEndTest::project(const std::string& name) const {
    return root.makeFolder("projects/" + name);
}

std::string EndToEndTest::addProject(const std::string& name,
                                     const std::vector<std::string>& options) {
    const std::string folder = project(name);
    std::vector<std::string> arguments = {"add", folder};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const ProcessResult result = tide(arguments, home);
    EXPECT_EQ(result.status, 0) << result.standardError;
    return folder;
}

std::vector<std::string> EndToEndTest::pinnedFolders() const {
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

void EndToEndTest::writeItemsFile(const std::string& bytes) const {
    std::filesystem::create_directories(dataFolder());
    std::ofstream(itemsFile(), std::ios::binary) << bytes;
}

std::vector<NotchItem> EndToEndTest::storedItems() const {
    return ItemsJson::decode(itemsFileBytes()).value_or(std::vector<NotchItem>());
}

std::optional<std::string> EndToEndTest::readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

std::vector<std::string> EndToEndTest::entries(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
}

bool EndToEndTest::isWorkedIn(const std::string& folder) {
    return std::ranges::any_of(
        std::filesystem::directory_iterator("/proc"), [&](const auto& process) {
            std::error_code unreadable;
            return std::filesystem::read_symlink(process.path() / "cwd", unreadable) == folder;
        });
}

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
