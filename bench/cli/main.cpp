// Times the command-line tool's commands against zoxide and /bin/true on the same machine
// in the same run, so that the ratios mean something wherever it runs. Absolute times
// vary with the machine and are only printed, never judged.

#include "LinkedLibraries.h"
#include "Report.h"
#include "Workspace.h"
#include "support/PrivateSessionBus.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>

namespace {

using namespace tidewell;
using namespace tidewell::bench;

constexpr int warmUps = 5;
constexpr int runs = 41;
constexpr std::array recordCounts{10, 100, 1'000, 10'000};

// The tool posts on the session bus after every save, so a bus should be there as on a
// desktop: the one of the environment, else one of our own for the run.
struct SessionBus {
    std::optional<testing::PrivateSessionBus> privateBus;
    std::string address;
    std::string description;
};

void connectSessionBus(SessionBus& bus) {
    if (const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS"); address && *address) {
        bus.address = address;
        bus.description = "the environment's";
        return;
    }
    try {
        bus.privateBus.emplace();
        bus.address = bus.privateBus->address();
        bus.description = "no session bus in the environment; a private dbus-daemon for the run";
    } catch (const std::exception& error) {
        bus.description = std::string("no session bus (") + error.what() + ")";
    }
}

SizeTimes measure(const Workspace& workspace, int records) {
    workspace.prepareTide(records);
    workspace.prepareZoxide(records);
    const std::vector<double> medians =
        sideBySideMedians({workspace.tide(records, {"."}), workspace.tide(records, {"add", "."}),
                           workspace.tide(records, {"list"}), workspace.zoxideAdd(records),
                           workspace.durableFloor(records)},
                          warmUps, runs);
    return {.records = records,
            .tideHere = medians[0],
            .tideAdd = medians[1],
            .tideList = medians[2],
            .zoxideAdd = medians[3],
            .durableFloor = medians[4]};
}

// Every record count, with the tool posting to `busAddress` (none when empty).
void measureAll(const Programs& programs, const std::string& busAddress, const std::string& title,
                double trueTime) {
    const Workspace workspace(programs, recordCounts.back(), busAddress);
    std::vector<SizeTimes> sizes;
    for (int records : recordCounts)
        sizes.push_back(measure(workspace, records));
    printTimes(title, sizes, trueTime);
    std::fflush(stdout);
}

int benchmark(const Programs& programs) {
    SessionBus bus;
    connectSessionBus(bus);
    std::printf("tide: %s\nSession bus: %s\n", programs.tide.c_str(), bus.description.c_str());
    std::printf("Median of %d runs after %d warm-up runs; each start spawned and waited for, "
                "standard output to /dev/null; the commands of a record count run in turn, "
                "%d ms apart, as typed commands are.\n",
                runs, warmUps, static_cast<int>(pauseBetweenRuns.count()));
    std::fflush(stdout);

    const double trueTime =
        medianMilliseconds(Workspace(programs, 0, "").trueCommand(), warmUps, runs);
    if (!bus.address.empty())
        measureAll(programs, bus.address, "WITH a session bus (the tool posts to it)", trueTime);
    measureAll(programs, "", "WITHOUT a session bus", trueTime);

    const auto libraries = linkedLibraries(programs.tide);
    printLibraries(libraries, desktopLibraries(libraries));
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "Usage: %s <path of tidewell> <path of tidewell_durable_floor>\n",
                     argv[0]);
        return 2;
    }
    try {
        return benchmark({.tide = argv[1], .durableFloor = argv[2]});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "Benchmark failed: %s\n", error.what());
        return 1;
    }
}
