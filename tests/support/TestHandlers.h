#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tidewell::testing {

// How a test handler was started, as it reported itself.
struct HandlerLaunch {
    std::string processId;
    std::string sessionId;
    std::vector<std::string> arguments;
    std::vector<std::string> environment; // NAME=value
    bool hasVariable(const std::string& name) const;
};

// Desktop applications of the tests' own: each is a script that reports how it was started
// (process, session, arguments, environment) to a file, so that a test sees what a launch
// through the desktop's handlers really did.
class TestHandlers {
public:
    static constexpr const char* folderHandlerId = "tidewell-test-opener";

    // The script and its reports live in `folder`; entries go to `dataFolder`/applications and
    // the folder handler becomes the default for folders in `configFolder`/mimeapps.list.
    TestHandlers(const std::string& folder, const std::string& dataFolder,
                 const std::string& configFolder);

    // A desktop entry that starts the script under this id, with further keys.
    void install(const std::string& handlerId, const std::string& extraKeys) const;
    // Whether a report of the handler waits to be consumed.
    bool hasReport(const std::string& handlerId) const;
    // Waits for the handler's next report, which it writes once started, and consumes it;
    // none when no report came within ten seconds.
    std::optional<HandlerLaunch> waitForLaunch(const std::string& handlerId) const;

private:
    std::string folder_;
    std::string dataFolder_;
};

} // namespace tidewell::testing
