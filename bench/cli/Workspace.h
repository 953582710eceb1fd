#pragma once

#include "Command.h"
#include "support/TemporaryDirectory.h"

#include <string>
#include <vector>

namespace tidewell::bench {

// The executables measured: the tool, and the floor that rewrites the items file durably.
struct Programs {
    std::string tide;
    std::string durableFloor;
};

// A temporary folder with real project folders, and for each record count an items file
// and a zoxide database that name the first that many of them. Everything a measured
// program reads or writes lies inside it.
class Workspace {
public:
    // `sessionBus` is the bus address handed to the tool, or empty for none.
    Workspace(Programs programs, int folderCount, std::string sessionBus);

    // The folder the commands act on for a record count: the last record's, so that any
    // search for it walks every record.
    std::string targetFolder(int records) const;

    // Writes an items file of `records` records for the tool, with `tide` commands reading it.
    void prepareTide(int records) const;
    // Builds a zoxide database of the same folders through `zoxide import`, and checks that
    // zoxide lists them all.
    void prepareZoxide(int records) const;

    // The tool's data folder, holding the items file, for a record count.
    std::string tideDataFolder(int records) const;

    Command tide(int records, const std::vector<std::string>& arguments) const;
    Command zoxideAdd(int records) const;
    Command durableFloor(int records) const;
    Command trueCommand() const;

private:
    std::string projectFolder(int index) const;
    std::string tideDataHome(int records) const;
    std::string zoxideDataFolder(int records) const;
    std::vector<std::string> baseEnvironment() const;
    Command zoxide(int records, const std::vector<std::string>& arguments) const;

    testing::TemporaryDirectory root_;
    Programs programs_;
    std::string sessionBus_;
};

} // namespace tidewell::bench
