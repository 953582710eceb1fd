#include "Report.h"

#include <cstdio>
#include <initializer_list>

namespace tidewell::bench {
namespace {

void printHeading(const char* title, std::initializer_list<const char*> more = {}) {
    std::printf("\n%s\n%8s %11s %11s %11s", title, "records", "tide .", "tide add .", "tide list");
    for (const char* column : more)
        std::printf(" %12s", column);
    std::printf("\n");
}

void printRow(int records, double here, double add, double list,
              std::initializer_list<double> more = {}) {
    std::printf("%8d %11.3f %11.3f %11.3f", records, here, add, list);
    for (double value : more)
        std::printf(" %12.3f", value);
    std::printf("\n");
}

void printGrowth(const SizeTimes& smaller, const SizeTimes& larger) {
    std::printf("\nGrowth from %d to %d records (records x%.1f):\n", smaller.records,
                larger.records, static_cast<double>(larger.records) / smaller.records);
    std::printf("  tide . x%.2f   tide add . x%.2f   tide list x%.2f   zoxide add x%.2f   "
                "floor x%.2f\n",
                larger.tideHere / smaller.tideHere, larger.tideAdd / smaller.tideAdd,
                larger.tideList / smaller.tideList, larger.zoxideAdd / smaller.zoxideAdd,
                larger.durableFloor / smaller.durableFloor);
}

} // namespace

void printTimes(const std::string& title, const std::vector<SizeTimes>& sizes, double trueTime) {
    std::printf("\n=== %s ===\n", title.c_str());
    printHeading("Median wall time (ms)", {"zoxide add", "floor"});
    for (const SizeTimes& size : sizes)
        printRow(size.records, size.tideHere, size.tideAdd, size.tideList,
                 {size.zoxideAdd, size.durableFloor});
    std::printf("%8s %11.3f  (/bin/true)\n", "-", trueTime);

    printHeading("Ratio to zoxide add (same record count)");
    for (const SizeTimes& size : sizes)
        printRow(size.records, size.tideHere / size.zoxideAdd, size.tideAdd / size.zoxideAdd,
                 size.tideList / size.zoxideAdd);

    // zoxide syncs neither its file nor its folder. The tool must: the floor program does
    // only that, and its own ratio to zoxide is what keeping the file safe costs by itself.
    printHeading("Ratio to the floor: read, lock, write, sync, rename, sync the folder",
                 {"floor/zoxide"});
    for (const SizeTimes& size : sizes)
        printRow(size.records, size.tideHere / size.durableFloor, size.tideAdd / size.durableFloor,
                 size.tideList / size.durableFloor, {size.durableFloor / size.zoxideAdd});

    printHeading("Ratio to /bin/true", {"zoxide add"});
    for (const SizeTimes& size : sizes)
        printRow(size.records, size.tideHere / trueTime, size.tideAdd / trueTime,
                 size.tideList / trueTime, {size.zoxideAdd / trueTime});

    if (sizes.size() >= 2)
        printGrowth(sizes[sizes.size() - 2], sizes.back());
}

void printLibraries(const std::vector<std::string>& libraries,
                    const std::vector<std::string>& desktop) {
    std::printf("\nLibraries of tidewell (ldd):\n");
    for (const std::string& library : libraries)
        std::printf("  %s\n", library.c_str());
    std::printf("Qt, GLib/GIO or X11 library among them: ");
    if (desktop.empty())
        std::printf("none\n");
    for (std::size_t i = 0; i < desktop.size(); ++i)
        std::printf("%s%s", desktop[i].c_str(), i + 1 < desktop.size() ? ", " : " (yes)\n");
}

} // namespace tidewell::bench
