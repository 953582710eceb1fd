#include "wayland/WaylandApplicationTest.h"

#include <cmath>
#include <cstdlib>
#include <thread>

namespace tidewell::testing {

using namespace std::chrono_literals;

void WaylandApplicationTest::startApplication() {
    auto variables = sessionEnvironment();
    variables["XDG_DATA_DIRS"] = root.makeFolder("desktop-data");
    variables["XDG_CONFIG_DIRS"] = root.makeFolder("desktop-config");
    application = std::make_unique<ChildProcess>(ChildProcess::Launch{
        .arguments = {tidewellPath()}, .workingDirectory = home, .environment = variables});
}

std::pair<int, int> WaylandApplicationTest::tileCentre(int output, int tiles, int index) {
    const int shelfWidth = bodyWidth(tiles) + 16;
    const int shelfLeft =
        output * SwayDesktop::outputWidth +
        static_cast<int>(std::lround((SwayDesktop::outputWidth - shelfWidth) / 2.0));
    return {shelfLeft + 14 + 66 * index + 30, topInset + 8 + 31};
}

int WaylandApplicationTest::drawnBodyWidth(const Screenshot& shot, int output, int dx) const {
    return shot.runThrough(centreX(output) + dx, bodyRow, black);
}

// Its sides may be drawn a pixel in or out of the body's edges.
bool WaylandApplicationTest::waitUntilOpen(int output, int tiles) {
    return waitUntil([&] {
        return std::abs(drawnBodyWidth(desktop.screenshot(), output) - bodyWidth(tiles)) <= 2;
    });
}

bool WaylandApplicationTest::waitUntilClosed(int output, unsigned long below) {
    return waitUntil([&] {
        const Screenshot shot = desktop.screenshot();
        const int left = output * SwayDesktop::outputWidth;
        for (int y = 0; y < topInset + 100; ++y)
            for (int x = left; x < left + SwayDesktop::outputWidth; ++x)
                if (shot.pixel(x, y) != below)
                    return false;
        return true;
    });
}

bool WaylandApplicationTest::waitUntilSettled(int output, int tiles) {
    if (!waitUntilOpen(output, tiles))
        return false;
    const auto [x, y] = tileCentre(output, tiles, 0);
    unsigned long previous = black;
    return waitUntil([&] {
        const unsigned long current = desktop.screenshot().pixel(x, y);
        const bool settled = current != black && current == previous;
        previous = current;
        std::this_thread::sleep_for(100ms);
        return settled;
    });
}

bool WaylandApplicationTest::openOnceStarted(int x, int y, int tiles) {
    const int output = x / SwayDesktop::outputWidth;
    return waitUntil(
        [&] {
            hand.moveTo(x, 600);
            hand.moveTo(x, y);
            return waitUntil([&] { return drawnBodyWidth(desktop.screenshot(), output) > 0; },
                             1s) &&
                   waitUntilOpen(output, tiles);
        },
        20s);
}

} // namespace tidewell::testing
