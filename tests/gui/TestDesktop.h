#pragma once

#include "gui/EventLoopWait.h"
#include "support/PrivateSessionBus.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"
#include "support/TestHandlers.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace tidewell::testing {

// A desktop of the tests' own: XDG folders in a temporary folder where the only
// applications are two test handlers (the default for folders, and an entry with the Codex
// application's id), and a private session bus. GIO and QSettings read these folders once
// per process, so the desktop is installed for the whole program, before any test.
class TestDesktop {
public:
    static constexpr const char* folderHandlerId = TestHandlers::folderHandlerId;
    static constexpr const char* codexId = "com.openai.codex";

    TestDesktop();

    // The gtest environment that installs the desktop and removes it after the last test.
    static ::testing::Environment* installation();
    static const TestDesktop& current();

    const std::string& configHome() const { return configHome_; }
    // A folder for the tests' projects.
    const TemporaryDirectory& files() const { return root_; }
    // Serves the event loop until the handler's next report, which it writes once started,
    // and consumes it; none when no report came within ten seconds.
    std::optional<HandlerLaunch> waitForLaunch(const std::string& handlerId) const {
        processEventsUntil([&] { return handlers_.hasReport(handlerId); }, 10000);
        return handlers_.waitForLaunch(handlerId);
    }

private:
    TemporaryDirectory root_;
    std::string configHome_;
    TestHandlers handlers_;
    ScopedEnvironment environment_;
    PrivateSessionBus bus_;
};

} // namespace tidewell::testing
