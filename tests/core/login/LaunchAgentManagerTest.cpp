#include "core/login/LaunchAgentManager.h"

#include "core/notify/NotificationNames.h"
#include "linux/PosixFileSystem.h"
#include "support/FakeKeyValueStore.h"
#include "support/FakeLoginItemService.h"
#include "support/FakeMainQueue.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

using testing::FakeClock;
using testing::FakeKeyValueStore;
using testing::FakeLoginItemService;
using testing::FakeMainQueue;
using testing::TemporaryDirectory;

const ApplicationLocation installedCopy{"/usr/local/bin/tidewell", true};
const ApplicationLocation buildTreeCopy{"/home/user/src/tidewell/build/tidewell", false};

const std::vector<std::string> oldAgentFiles = {
    "com.quorvel.tidewell.app.plist",
    "com.ledgebox.login.plist",
    "com.ledgebox.app.plist",
};

std::string expectedAgent(const std::string& escapedProgram) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\">\n"
           "<dict>\n"
           "\t<key>Label</key>\n"
           "\t<string>com.quorvel.tidewell.login</string>\n"
           "\t<key>ProgramArguments</key>\n"
           "\t<array>\n"
           "\t\t<string>/usr/bin/open</string>\n"
           "\t\t<string>" +
           escapedProgram +
           "</string>\n"
           "\t</array>\n"
           "\t<key>RunAtLoad</key>\n"
           "\t<true/>\n"
           "\t<key>KeepAlive</key>\n"
           "\t<false/>\n"
           "\t<key>ProcessType</key>\n"
           "\t<string>Interactive</string>\n"
           "</dict>\n"
           "</plist>\n";
}

class LaunchAgentManagerTest : public ::testing::Test {
protected:
    LaunchAgentManagerTest() {
        notifications.addObserver(tidewellLoginStatusChanged, [this] { ++statusChangedCount; });
    }

    LaunchAgentManager manager(const ApplicationLocation& application = installedCopy) {
        return LaunchAgentManager(files, service, paths, application);
    }
    std::string agentsFolder() const { return home.path() + "/Library/LaunchAgents"; }
    std::string fallbackFile() const {
        return agentsFolder() + "/com.quorvel.tidewell.login.plist";
    }
    bool exists(const std::string& name) const { return files.exists(agentsFolder() + "/" + name); }
    void markMigrated() { defaults.setBoolean("Tidewell.didMigrateLoginItem", true); }
    bool isMigrated() const {
        return defaults.boolean("Tidewell.didMigrateLoginItem").value_or(false);
    }
    int postsDelivered() {
        queue.runUntilIdle();
        return statusChangedCount;
    }

    TemporaryDirectory home;
    UserPaths paths{home.path(), home.path() + "/.local/share"};
    PosixFileSystem files;
    FakeLoginItemService service;
    FakeKeyValueStore defaults;
    FakeClock clock;
    FakeMainQueue queue{clock};
    NotificationCenter notifications{queue};
    int statusChangedCount = 0;
};

TEST_F(LaunchAgentManagerTest, StatusFollowsTheServiceUnlessTheFallbackFileExists) {
    const auto unknown = static_cast<LoginItemStatus>(7);
    const std::vector<std::pair<LoginItemStatus, std::string>> answers = {
        {LoginItemStatus::notRegistered, "not registered"},
        {LoginItemStatus::enabled, "enabled"},
        {LoginItemStatus::requiresApproval, "requires approval"},
        {LoginItemStatus::notFound, "not found"},
        {unknown, "unknown"},
    };
    for (const auto& [status, description] : answers) {
        service.currentStatus = status;
        EXPECT_EQ(manager().statusDescription(), description);
        EXPECT_EQ(manager().isInstalled(), status == LoginItemStatus::enabled ||
                                               status == LoginItemStatus::requiresApproval);
    }

    home.write("Library/LaunchAgents/com.quorvel.tidewell.login.plist", "anything");
    EXPECT_EQ(manager().legacyPlistURL(), fallbackFile());
    for (const auto& [status, description] : answers) {
        service.currentStatus = status;
        EXPECT_TRUE(manager().isInstalled());
        EXPECT_EQ(manager().statusDescription(), "launch agent fallback");
    }
}

TEST_F(LaunchAgentManagerTest, InstallWithoutTheServiceWritesTheFallbackEveryTime) {
    markMigrated();
    service.currentStatus = LoginItemStatus::notFound;

    manager().install(defaults, notifications);
    EXPECT_EQ(files.readFile(fallbackFile()), expectedAgent("/usr/local/bin/tidewell"));
    EXPECT_EQ(postsDelivered(), 1);

    files.writeFileAtomically(fallbackFile(), "stale");
    manager().install(defaults, notifications);
    EXPECT_EQ(files.readFile(fallbackFile()), expectedAgent("/usr/local/bin/tidewell"));
    EXPECT_EQ(postsDelivered(), 2);
    EXPECT_EQ(service.registerCount, 0);
    EXPECT_EQ(manager().statusDescription(), "launch agent fallback");
}

TEST_F(LaunchAgentManagerTest, FallbackEscapesTheProgramPath) {
    markMigrated();
    service.currentStatus = LoginItemStatus::notFound;
    manager({"/opt/R&D <new>/bin/tidewell", true}).install(defaults, notifications);
    EXPECT_EQ(files.readFile(fallbackFile()),
              expectedAgent("/opt/R&amp;D &lt;new&gt;/bin/tidewell"));
}

TEST_F(LaunchAgentManagerTest, FallbackNeedsAnInstalledCopy) {
    markMigrated();
    service.currentStatus = LoginItemStatus::notFound;
    try {
        manager(buildTreeCopy).install(defaults, notifications);
        FAIL() << "install succeeded without an installed copy";
    } catch (const LaunchAgentError& error) {
        EXPECT_EQ(error.errorCase(), LaunchAgentError::missingExecutable);
        EXPECT_STREQ(error.what(), "The packaged app could not be located for launch at login.");
    }
    EXPECT_FALSE(files.exists(agentsFolder()));
    EXPECT_EQ(postsDelivered(), 0);
}

TEST_F(LaunchAgentManagerTest, RegisterFailureFallsBackToTheAgentFile) {
    markMigrated();
    service.registerFailure = "The service refused.";

    manager().install(defaults, notifications);
    EXPECT_EQ(service.registerCount, 1);
    EXPECT_EQ(files.readFile(fallbackFile()), expectedAgent("/usr/local/bin/tidewell"));
    EXPECT_EQ(postsDelivered(), 1);

    // The register error is dropped; the fallback's own error is what the caller sees.
    EXPECT_THROW(manager(buildTreeCopy).install(defaults, notifications), LaunchAgentError);
}

TEST_F(LaunchAgentManagerTest, InstallRegistersOnlyWhenNotRegistered) {
    markMigrated();
    manager().install(defaults, notifications);
    EXPECT_EQ(service.registerCount, 1);
    EXPECT_EQ(service.currentStatus, LoginItemStatus::enabled);

    service.currentStatus = LoginItemStatus::requiresApproval;
    manager().install(defaults, notifications);
    EXPECT_EQ(service.registerCount, 1);
    EXPECT_EQ(service.unregisterCount, 0);
    EXPECT_FALSE(files.exists(fallbackFile()));
    EXPECT_EQ(postsDelivered(), 2);
}

TEST_F(LaunchAgentManagerTest, FirstInstallCleansUpOldRegistrationsOnce) {
    for (const std::string& name : oldAgentFiles)
        home.write("Library/LaunchAgents/" + name, "old");
    home.write("Library/LaunchAgents/com.quorvel.tidewell.login.plist", "old");
    home.write("Library/LaunchAgents/org.example.other.plist", "someone else's");
    service.currentStatus = LoginItemStatus::enabled;

    manager().install(defaults, notifications);
    for (const std::string& name : oldAgentFiles)
        EXPECT_FALSE(exists(name)) << name;
    EXPECT_FALSE(files.exists(fallbackFile()));
    EXPECT_TRUE(exists("org.example.other.plist"));
    EXPECT_TRUE(isMigrated());
    // The old registration is dropped and a fresh one made.
    EXPECT_EQ(service.unregisterCount, 1);
    EXPECT_EQ(service.registerCount, 1);
    EXPECT_EQ(postsDelivered(), 1);

    for (const std::string& name : oldAgentFiles)
        home.write("Library/LaunchAgents/" + name, "old");
    manager().install(defaults, notifications);
    for (const std::string& name : oldAgentFiles)
        EXPECT_TRUE(exists(name)) << name;
    EXPECT_EQ(service.unregisterCount, 1);
    EXPECT_EQ(service.registerCount, 1);
}

TEST_F(LaunchAgentManagerTest, CleanUpIgnoresUnregisterFailures) {
    service.currentStatus = LoginItemStatus::requiresApproval;
    service.unregisterFailure = "Busy.";
    manager().install(defaults, notifications);
    EXPECT_EQ(service.unregisterCount, 1);
    EXPECT_TRUE(isMigrated());
    EXPECT_EQ(postsDelivered(), 1);
}

TEST_F(LaunchAgentManagerTest, RemovalFailureStopsBeforeAnythingChanges) {
    // A folder where an old agent file would be cannot be removed as a file.
    home.write("Library/LaunchAgents/com.ledgebox.login.plist/keep", "");
    home.write("Library/LaunchAgents/com.quorvel.tidewell.app.plist", "old");
    home.write("Library/LaunchAgents/com.ledgebox.app.plist", "old");
    service.currentStatus = LoginItemStatus::enabled;

    EXPECT_THROW(manager().install(defaults, notifications), Error);
    EXPECT_FALSE(exists("com.quorvel.tidewell.app.plist"));
    EXPECT_TRUE(exists("com.ledgebox.app.plist"));
    EXPECT_THROW(manager().uninstall(defaults, notifications), Error);
    EXPECT_FALSE(isMigrated());
    EXPECT_EQ(service.unregisterCount, 0);
    EXPECT_EQ(postsDelivered(), 0);
}

TEST_F(LaunchAgentManagerTest, UninstallRemovesTheFallbackAndTheRegistration) {
    markMigrated();
    service.currentStatus = LoginItemStatus::notFound;
    manager().install(defaults, notifications);
    ASSERT_TRUE(files.exists(fallbackFile()));

    manager().uninstall(defaults, notifications);
    EXPECT_FALSE(files.exists(fallbackFile()));
    EXPECT_EQ(service.unregisterCount, 0);
    EXPECT_FALSE(manager().isInstalled());
    EXPECT_EQ(postsDelivered(), 2);

    service.currentStatus = LoginItemStatus::enabled;
    defaults.values.clear();
    manager().uninstall(defaults, notifications);
    EXPECT_EQ(service.unregisterCount, 1);
    EXPECT_TRUE(isMigrated());
    EXPECT_EQ(manager().statusDescription(), "not registered");
    EXPECT_EQ(postsDelivered(), 3);
}

TEST_F(LaunchAgentManagerTest, UninstallPassesUnregisterFailuresOnWithoutPosting) {
    service.currentStatus = LoginItemStatus::requiresApproval;
    service.unregisterFailure = "Operation not permitted.";
    try {
        manager().uninstall(defaults, notifications);
        FAIL() << "uninstall succeeded";
    } catch (const Error& error) {
        EXPECT_STREQ(error.what(), "Operation not permitted.");
    }
    EXPECT_TRUE(isMigrated());
    EXPECT_EQ(postsDelivered(), 0);
}

} // namespace
} // namespace tidewell
