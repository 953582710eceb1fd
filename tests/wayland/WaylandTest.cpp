#include "wayland/WaylandTest.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <thread>

namespace tidewell::testing {

using namespace std::chrono_literals;

namespace {

// The width of the body of the shelf showing that many tiles.
int bodyWidth(int tiles) {
    return std::max(200, 66 * tiles + 59) - 16;
}

} // namespace

ChildProcess::Launch WaylandTest::sessionLaunch(const std::vector<std::string>& arguments) const {
    auto session = launch(arguments.front(), {arguments.begin() + 1, arguments.end()}, home);
    session.environment.merge(desktop.environment());
    session.environment["XDG_SESSION_TYPE"] = "wayland";
    return session;
}

std::unique_ptr<ChildProcess> WaylandTest::startWindow(int x, int y, int width, int height,
                                                       const std::vector<std::string>& paths) {
    std::vector<std::string> arguments = {buildFolder() + "/tests/tidewell_drag_source_probe",
                                          "--at", "0,0"};
    arguments.insert(arguments.end(), paths.begin(), paths.end());
    auto window = sessionLaunch(arguments);
    window.environment["QT_QPA_PLATFORM"] = "wayland";
    auto client = std::make_unique<ChildProcess>(window);
    EXPECT_TRUE(waitForLine(*client, "ready")) << client->standardError();
    desktop.place(client->pid(), x, y, width, height);
    return client;
}

bool WaylandTest::waitForLine(const ChildProcess& client, const std::string& line) {
    return waitUntil(
        [&] {
            return ("\n" + client.standardOutput()).find("\n" + line + "\n") != std::string::npos;
        },
        10s);
}

void WaylandTest::startApplication() {
    auto session = sessionLaunch({tidewellPath()});
    session.environment["XDG_DATA_DIRS"] = root.makeFolder("desktop-data");
    session.environment["XDG_CONFIG_DIRS"] = root.makeFolder("desktop-config");
    application = std::make_unique<ChildProcess>(session);
}

std::pair<int, int> WaylandTest::tileCentre(int output, int tiles, int index) {
    const int shelfWidth = bodyWidth(tiles) + 16;
    const int shelfLeft =
        output * SwayDesktop::outputWidth +
        static_cast<int>(std::lround((SwayDesktop::outputWidth - shelfWidth) / 2.0));
    return {shelfLeft + 14 + 66 * index + 30, topInset + 8 + 31};
}

int WaylandTest::drawnBodyWidth(int output, int dx) const {
    return desktop.screenshot().runThrough(centreX(output) + dx, topInset + 4, 0x000000);
}

// Its sides may be drawn a pixel in or out of the body's edges.
bool WaylandTest::showsTiles(int output, int tiles, int dx) const {
    return std::abs(drawnBodyWidth(output, dx) - bodyWidth(tiles)) <= 2;
}

bool WaylandTest::waitUntilOpen(int output, int tiles) {
    return waitUntil([&] { return showsTiles(output, tiles); });
}

bool WaylandTest::waitUntilClosed(int output, unsigned long below) {
    return waitUntil([&] {
        const SwayDesktop::Screenshot shot = desktop.screenshot();
        for (int y = 0; y < topInset + 100; ++y)
            for (int x = centreX(output) - 960; x < centreX(output) + 960; ++x)
                if (shot.pixel(x, y) != below)
                    return false;
        return true;
    });
}

bool WaylandTest::waitUntilSettled(int output, int tiles) {
    if (!waitUntilOpen(output, tiles))
        return false;
    const auto [x, y] = tileCentre(output, tiles, 0);
    unsigned long previous = 0x000000;
    return waitUntil([&] {
        const unsigned long current = desktop.screenshot().pixel(x, y);
        const bool settled = current != 0x000000 && current == previous;
        previous = current;
        std::this_thread::sleep_for(100ms);
        return settled;
    });
}

bool WaylandTest::openOnceStarted(int x, int y, int tiles) {
    const int output = x / SwayDesktop::outputWidth;
    return waitUntil(
        [&] {
            desktop.moveTo(x, 600);
            desktop.moveTo(x, y);
            return waitUntil([&] { return drawnBodyWidth(output) > 0; }, 1s) &&
                   waitUntilOpen(output, tiles);
        },
        20s);
}

} // namespace tidewell::testing
