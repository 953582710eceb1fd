#pragma once

#include "core/items/NotchItem.h"
#include "support/ChildProcess.h"
#include "support/PrivateSessionBus.h"
#include "support/TemporaryDirectory.h"
#include "support/WaitUntil.h"

#include <chrono>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace tidewell::testing {

// The notifications Tidewell processes broadcast on the session bus, as dbus-monitor hears
// them on the wire (path, interface, member and the name as its one string): only those posted
// once the object is made.
class PostedSignals {
public:
    explicit PostedSignals(const std::map<std::string, std::string>& environment);
    // The names heard so far, in arrival order.
    std::vector<std::string> received() const;
    // Whether `count` notifications of that name have arrived within the timeout.
    bool waitFor(const std::string& name, int count = 1,
                 std::chrono::milliseconds timeout = std::chrono::seconds(5)) const;

private:
    ChildProcess monitor_;
};

// The built program run as its user would run it, but with a home, XDG folders and a
// session bus of the test's own, so nothing of the machine's user is read or changed.
class EndToEndTest : public ::testing::Test {
protected:
    EndToEndTest();

    static std::string buildFolder();
    static std::string tidePath() { return buildFolder() + "/tide"; }
    static std::string tidewellPath() { return buildFolder() + "/tidewell"; }

    // The isolated environment: PATH of the test, the test's folders and bus, nothing else.
    std::map<std::string, std::string> environment() const;
    // The program with these arguments, started in that folder, the variables given replacing
    // those of the isolated environment; change it before running.
    ChildProcess::Launch launch(const std::string& program,
                                const std::vector<std::string>& arguments,
                                const std::string& workingDirectory,
                                std::map<std::string, std::string> variables = {}) const;
    ProcessResult tide(const std::vector<std::string>& arguments,
                       const std::string& workingDirectory) const;
    // Checks all that a finished command left behind, and that it finished in time.
    static void expectResult(const ProcessResult& result, const std::string& out,
                             const std::string& errors, int status);
    // A command of the tool and what it leaves behind.
    struct Step {
        std::vector<std::string> arguments;
        std::string out;
        std::string errors = "";
        int status = 0;
    };
    // Runs the tool's commands one after another in the folder and checks each.
    void walk(const std::vector<Step>& steps, const std::string& workingDirectory,
              const std::map<std::string, std::string>& variables = {}) const;

    // A new folder below the test's projects folder.
    std::string project(const std::string& name) const;
    // Pins a new project folder of this name through the command line.
    std::string addProject(const std::string& name, const std::vector<std::string>& options = {});
    // The pinned folders as the shelf orders them: placed ones first, by their place.
    std::vector<std::string> pinnedFolders() const;
    std::string dataFolder() const { return dataHome + "/Tidewell"; }
    std::string itemsFile() const { return dataFolder() + "/items.json"; }
    std::string itemsFileBytes() const { return readFile(itemsFile()).value_or(""); }
    void writeItemsFile(const std::string& bytes) const;
    // The records of the items file; none when it cannot be read.
    std::vector<NotchItem> storedItems() const;

    static std::optional<std::string> readFile(const std::string& path);
    // The names in a folder, sorted.
    static std::vector<std::string> entries(const std::string& folder);
    // Whether a process works in the folder: the shell of a terminal opened there.
    static bool isWorkedIn(const std::string& folder);

    TemporaryDirectory root;
    PrivateSessionBus bus;
    std::string home = root.makeFolder("home");
    std::string dataHome = root.makeFolder("data");
    std::string configHome = root.makeFolder("config");
    std::string runtimeFolder = root.makeFolder("runtime");
};

} // namespace tidewell::testing
