#pragma once

#include "core/items/ItemDatabase.h"
#include "core/login/LaunchAgentManager.h"
#include "core/platform/FileSystem.h"
#include "core/platform/ProcessLauncher.h"

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace tidewell {

// The `tide` command line: records, lists and removes projects in the items file and asks
// the application to show its shelf. Results go to `out`, failures to `errors`, always as
// whole lines; every command answers with an exit status.
class CLI {
public:
    struct Services {
        ItemDatabase& database;
        const LaunchAgentManager& launchAtLogin;
        ProcessLauncher& launcher;
        FileSystem& files;
        std::string home;
        std::string applicationExecutable; // started by "show"
        std::string version;
        std::ostream& out;
        std::ostream& errors;
    };

    explicit CLI(Services services) : services_(std::move(services)) {}

    // True when the arguments name a command: application launchers may pass a single
    // "-psn_..." argument, which is an application start.
    static bool isCLIInvocation(const std::vector<std::string>& arguments);

    // The whole argument vector, program name first.
    int run(const std::vector<std::string>& arguments);
    int add(const std::vector<std::string>& arguments, bool favorite);
    std::string resolvedPath(const std::optional<std::string>& path) const;

private:
    int open(const std::vector<std::string>& arguments);
    int list();
    int show();
    int cacheIcons();
    int remove(const std::vector<std::string>& arguments);
    int printUsage();

    Services services_;
};

} // namespace tidewell
