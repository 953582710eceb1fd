#pragma once

#include "support/PrivateSessionBus.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"
#include "support/TestHandlers.h"
#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>

namespace tidewell::testing {

// Runs the Qt event loop (deferred deletions included) until `condition` holds; false when it
// still does not after the timeout.
inline bool processEventsUntil(const std::function<bool()>& condition,
                               std::chrono::milliseconds timeout = std::chrono::seconds(5)) {
    return waitUntil(condition, timeout, [] {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
}

// XDG folders of the tests' own whose only applications are two test handlers (the default for
// folders, and one with the Codex application's id), and a private session bus. GIO and
// QSettings read these folders once per process: main() installs it before any test.
class TestDesktop : public ::testing::Environment {
public:
    static constexpr const char* codexId = "com.openai.codex";

    void SetUp() override { current_ = std::make_unique<World>(); }
    void TearDown() override { current_.reset(); }

    static const std::string& configHome() { return current_->configHome; }
    // A folder for the tests' projects.
    static const TemporaryDirectory& files() { return current_->root; }
    // Serves the event loop until the handler's next report and consumes it.
    static std::optional<HandlerLaunch> waitForLaunch(const std::string& handlerId) {
        processEventsUntil([&] { return current_->handlers.hasReport(handlerId); },
                           std::chrono::seconds(10));
        return current_->handlers.waitForLaunch(handlerId);
    }

private:
    struct World {
        World() {
            environment.set("XDG_CONFIG_HOME", configHome);
            environment.set("XDG_DATA_HOME", root.path() + "/data");
            environment.set("XDG_CONFIG_DIRS", root.makeFolder("empty-config"));
            environment.set("XDG_DATA_DIRS", root.makeFolder("empty-data"));
            handlers.install(codexId, "");
        }
        TemporaryDirectory root;
        std::string configHome = root.makeFolder("config");
        TestHandlers handlers{root.path(), root.makeFolder("data"), configHome};
        ScopedEnvironment environment;
        PrivateSessionBus bus;
    };
    static inline std::unique_ptr<World> current_;
};

} // namespace tidewell::testing
