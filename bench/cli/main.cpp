// Times the command-line tool's commands against zoxide and /bin/true on the same machine
// in the same run, so that the ratios mean something wherever it runs. Absolute times
// vary with the machine and are only printed, never judged.

#include "LinkedLibraries.h"
#include "Report.h"
#include "SyncFloor.h"
#include "Workspace.h"
#include "support/PrivateSessionBus.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
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
                           workspace.tide(records, {"list"}), workspace.zoxideAdd(records)},
                          warmUps, runs);
    const std::string folder = workspace.tideDataFolder(records);
    const auto fileSize = std::filesystem::file_size(folder + "/items.json");
    return {.records = records,
            .tideHere = medians[0],
            .tideAdd = medians[1],
            .tideList = medians[2],
            .zoxideAdd = medians[3],
            .syncFloor = syncFloorMilliseconds(folder, fileSize, runs)};
}

// Every record count, with the tool posting to `busAddress` (none when empty).
void measureAll(const std::string& tideExecutable, const std::string& busAddress,
                const std::string& title, double trueTime) {
    const Workspace workspace(tideExecutable, recordCounts.back(), busAddress);
    std::vector<SizeTimes> sizes;
    for (int records : recordCounts)
        sizes.push_back(measure(workspace, records));
    printTimes(title, sizes, trueTime);
    std::fflush(stdout);
}

int benchmark(const std::string& tideExecutable) {
    SessionBus bus;
    connectSessionBus(bus);
    std::printf("tide: %s\nSession bus: %s\n", tideExecutable.c_str(), bus.description.c_str());
    std::printf("Median of %d runs after %d warm-up runs; each start spawned and waited for, "
                "standard output to /dev/null; the commands of a record count run in turn.\n",
                runs, warmUps);
    std::fflush(stdout);

    const double trueTime =
        medianMilliseconds(Workspace(tideExecutable, 0, "").trueCommand(), warmUps, runs);
    if (!bus.address.empty())
        measureAll(tideExecutable, bus.address, "WITH a session bus (the tool posts to it)",
                   trueTime);
    measureAll(tideExecutable, "", "WITHOUT a session bus", trueTime);

    const auto libraries = linkedLibraries(tideExecutable);
    printLibraries(libraries, desktopLibraries(libraries));
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "Usage: %s <path of tidewell>\n", argv[0]);
        return 2;
    }
    try {
        return benchmark(argv[1]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "Benchmark failed: %s\n", error.what());
        return 1;
    }
}
