#include "support/TestHandlers.h"

#include "support/WaitUntil.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

// Called with the handler's id and then its own arguments. Writes its report (process, session
// and argument count, the arguments a line each, the environment) in one rename, so that a
// waiting test never reads half of it.
constexpr const char* handlerScript = R"(#!/bin/sh
report="$(dirname "$0")/reports/$1"
shift
{ echo "$$ $(ps -o sid= $$) $#"; printf '%s\n' "$@"; env; } > "$report.part"
mv "$report.part" "$report"
)";

void writeFile(const std::filesystem::path& path, const std::string& text) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path) << text;
}

} // namespace

bool HandlerLaunch::hasVariable(const std::string& name) const {
    return std::any_of(environment.begin(), environment.end(),
                       [&](const std::string& entry) { return entry.starts_with(name + "="); });
}

TestHandlers::TestHandlers(const std::string& folder, const std::string& dataFolder,
                           const std::string& configFolder)
    : folder_(folder), dataFolder_(dataFolder) {
    const std::string script = folder_ + "/handler.sh";
    writeFile(script, handlerScript);
    std::filesystem::permissions(script, std::filesystem::perms::owner_exec,
                                 std::filesystem::perm_options::add);
    std::filesystem::create_directories(folder_ + "/reports");
    install(folderHandlerId, "MimeType=inode/directory;\n");
    writeFile(configFolder + "/mimeapps.list", "[Default Applications]\ninode/directory=" +
                                                   std::string(folderHandlerId) + ".desktop\n");
}

// GIO hands %U handlers a local path in place of a file URI unless the entry opts out; these
// do, so that the tests see the URI exactly as it was given.
void TestHandlers::install(const std::string& handlerId, const std::string& extraKeys) const {
    writeFile(dataFolder_ + "/applications/" + handlerId + ".desktop",
              "[Desktop Entry]\nType=Application\nName=" + handlerId + "\nExec=" + folder_ +
                  "/handler.sh " + handlerId + " %U\nX-GIO-NoFuse=true\n" + extraKeys);
}

bool TestHandlers::hasReport(const std::string& handlerId) const {
    return std::filesystem::exists(folder_ + "/reports/" + handlerId);
}

std::optional<HandlerLaunch> TestHandlers::waitForLaunch(const std::string& handlerId) const {
    const std::string report = folder_ + "/reports/" + handlerId;
    if (!waitUntil([&] { return hasReport(handlerId); }, 10s))
        return std::nullopt;
    std::ifstream lines(report);
    HandlerLaunch launch;
    std::size_t count = 0;
    lines >> launch.processId >> launch.sessionId >> count;
    lines.ignore();
    for (std::string line; std::getline(lines, line);)
        (launch.arguments.size() < count ? launch.arguments : launch.environment).push_back(line);
    std::filesystem::remove(report);
    return launch;
}

} // namespace tidewell::testing
