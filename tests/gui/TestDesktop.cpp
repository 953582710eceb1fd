#include "gui/TestDesktop.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

// Called with the handler's id and then its own arguments. Writes its report in one rename,
// so that a waiting test never reads half of it.
constexpr const char* handlerScript = R"(#!/bin/sh
report="$(dirname "$0")/reports/$1"
shift
{
  echo "$$"
  ps -o sid= $$
  echo "$#"
  for argument; do printf '%s\n' "$argument"; done
  env
} > "$report.part"
mv "$report.part" "$report"
)";

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first);
}

HandlerLaunch parseReport(std::istream& lines) {
    HandlerLaunch launch;
    std::string count, line;
    std::getline(lines, launch.processId);
    std::getline(lines, launch.sessionId);
    launch.sessionId = trimmed(launch.sessionId);
    std::getline(lines, count);
    for (int i = 0; i < std::stoi(count) && std::getline(lines, line); ++i)
        launch.arguments.push_back(line);
    while (std::getline(lines, line))
        launch.environment.push_back(line);
    return launch;
}

std::unique_ptr<TestDesktop> installed;

class Installation : public ::testing::Environment {
public:
    void SetUp() override { installed = std::make_unique<TestDesktop>(); }
    void TearDown() override { installed.reset(); }
};

} // namespace

bool HandlerLaunch::hasVariable(const std::string& name) const {
    return std::any_of(environment.begin(), environment.end(),
                       [&](const std::string& entry) { return entry.starts_with(name + "="); });
}

TestDesktop::TestDesktop() : configHome_(root_.makeFolder("config")) {
    environment_.set("XDG_CONFIG_HOME", configHome_);
    environment_.set("XDG_DATA_HOME", root_.makeFolder("data"));
    environment_.set("XDG_CONFIG_DIRS", root_.makeFolder("empty-config"));
    environment_.set("XDG_DATA_DIRS", root_.makeFolder("empty-data"));
    const std::string script = root_.write("handler.sh", handlerScript);
    std::filesystem::permissions(script, std::filesystem::perms::owner_exec,
                                 std::filesystem::perm_options::add);
    root_.makeFolder("reports");
    installHandler(folderHandlerId, "MimeType=inode/directory;\n");
    installHandler(codexId, "");
    root_.write("config/mimeapps.list", "[Default Applications]\ninode/directory=" +
                                            std::string(folderHandlerId) + ".desktop\n");
}

::testing::Environment* TestDesktop::installation() {
    return new Installation;
}

const TestDesktop& TestDesktop::current() {
    return *installed;
}

// GIO hands %U handlers a local path in place of a file URI unless the entry opts out; these
// do, so that the tests see the URI exactly as it was given.
void TestDesktop::installHandler(const std::string& handlerId, const std::string& extraKeys) const {
    root_.write("data/applications/" + handlerId + ".desktop",
                "[Desktop Entry]\nType=Application\nName=" + handlerId + "\nExec=" + root_.path() +
                    "/handler.sh " + handlerId + " %U\nX-GIO-NoFuse=true\n" + extraKeys);
}

std::optional<HandlerLaunch> TestDesktop::waitForLaunch(const std::string& handlerId) const {
    const std::string report = root_.path() + "/reports/" + handlerId;
    const auto deadline = std::chrono::steady_clock::now() + 10s;
    while (!std::filesystem::exists(report)) {
        if (std::chrono::steady_clock::now() > deadline)
            return std::nullopt;
        std::this_thread::sleep_for(10ms);
    }
    std::ifstream lines(report);
    HandlerLaunch launch = parseReport(lines);
    std::filesystem::remove(report);
    return launch;
}

} // namespace tidewell::testing
