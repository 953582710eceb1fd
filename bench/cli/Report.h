#pragma once

#include <string>
#include <vector>

namespace tidewell::bench {

// Median start-to-end times, in milliseconds, for one record count.
struct SizeTimes {
    int records = 0;
    double tideHere = 0;     // tide .
    double tideAdd = 0;      // tide add .
    double tideList = 0;     // tide list
    double zoxideAdd = 0;    // zoxide add <folder>
    double durableFloor = 0; // the least a run that rewrites the items file safely takes
};

// The times, their ratios to zoxide and to /bin/true, and the growth between the two
// largest record counts. `sizes` is in ascending record order.
void printTimes(const std::string& title, const std::vector<SizeTimes>& sizes, double trueTime);

// The libraries ldd lists and whether a desktop library is among them.
void printLibraries(const std::vector<std::string>& libraries,
                    const std::vector<std::string>& desktop);

} // namespace tidewell::bench
