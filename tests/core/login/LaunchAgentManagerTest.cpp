#include "core/login/LaunchAgentManager.h"

#include "core/notify/NotificationNames.h"
#include "linux/PosixFileSystem.h"
#include "support/FakeKeyValueStore.h"
#include "support/FakeLoginItemService.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace tidewell::testing {
namespace {

const ApplicationLocation installedCopy{"/usr/local/bin/tidewell", true};
const ApplicationLocation buildTreeCopy{"/home/user/src/tidewell/build/tidewell", false};

const std::string ownAgent = "com.quorvel.tidewell.login.plist";
const std::vector<std::string> oldAgentFiles = {
    "com.quorvel.tidewell.app.plist",
    "com.ledgebox.login.plist",
    "com.ledgebox.app.plist",
};

class LaunchAgentManagerTest : public ::testing::Test {
protected:
    LaunchAgentManagerTest() {
        notifications.addObserver(tidewellLoginStatusChanged, [this] { ++statusChangedCount; });
    }

    LaunchAgentManager manager(const ApplicationLocation& application = installedCopy) {
        return LaunchAgentManager(files, service, paths, application);
    }
    // The error of an install, or "" when it succeeds.
    std::string installFailure(const ApplicationLocation& application = installedCopy) {
        try {
            manager(application).install(defaults, notifications);
        } catch (const LaunchAgentError& error) {
            EXPECT_EQ(error.errorCase(), LaunchAgentError::missingExecutable);
            return error.what();
        }
        return "";
    }
    std::string agentFile(const std::string& name = ownAgent) const {
        return home.path() + "/Library/LaunchAgents/" + name;
    }
    void writeAgentFile(const std::string& name = ownAgent) {
        home.write("Library/LaunchAgents/" + name, "old");
    }
    bool isMigrated() const { return defaults.boolean("Tidewell.didMigrateLoginItem") == true; }

    TemporaryDirectory home;
    UserPaths paths{home.path(), home.path() + "/.local/share"};
    PosixFileSystem files;
    FakeLoginItemService service;
    FakeKeyValueStore defaults;
    NotificationCenter notifications{[](MainQueue::Task task) { task(); }};
    int statusChangedCount = 0;
};

TEST_F(LaunchAgentManagerTest, InstallRegistersWithTheServiceOrFallsBackToTheAgentFile) {
    const struct {
        LoginItemStatus status;
        bool registerFails;
        int registerCount;
        bool usesAgentFile;
    } cases[] = {
        {LoginItemStatus::notRegistered, false, 1, false},
        {LoginItemStatus::enabled, false, 0, false},
        {LoginItemStatus::requiresApproval, false, 0, false},
        {LoginItemStatus::notFound, false, 0, true},
        {LoginItemStatus::notRegistered, true, 1, true},
    };
    defaults.setBoolean("Tidewell.didMigrateLoginItem", true);
    for (const auto& expected : cases) {
        // Without an installed copy the agent file could name no program.
        for (const ApplicationLocation& application : {installedCopy, buildTreeCopy}) {
            service = FakeLoginItemService();
            service.currentStatus = expected.status;
            if (expected.registerFails)
                service.registerFailure = "The service refused.";
            SCOPED_TRACE(manager().statusDescription() +
                         (expected.registerFails ? ", failing" : "") +
                         (application.isInstalled ? "" : ", not installed"));
            const bool fails = expected.usesAgentFile && !application.isInstalled;
            const int posts = statusChangedCount;

            EXPECT_EQ(installFailure(application),
                      fails ? "The packaged app could not be located for launch at login." : "");
            EXPECT_EQ(service.registerCount, expected.registerCount);
            EXPECT_EQ(service.unregisterCount, 0);
            EXPECT_EQ(files.exists(agentFile()), expected.usesAgentFile && !fails);
            EXPECT_EQ(statusChangedCount, posts + (fails ? 0 : 1));
            if (files.exists(agentFile()))
                files.removeFile(agentFile());
        }
    }
    // The agent file names the program escaped and replaces whatever was there.
    writeAgentFile();
    manager({"/opt/R&D <new>/bin/tidewell", true}).install(defaults, notifications);
    EXPECT_NE(files.readFile(agentFile())
                  ->find("<string>/usr/bin/open</string>\n\t\t<string>/opt/R&amp;D "
                         "&lt;new&gt;/bin/tidewell</string>"),
              std::string::npos);
}

// A registration that cannot be removed is made again anyway.
TEST_F(LaunchAgentManagerTest, FirstInstallCleansUpOldRegistrationsOnce) {
    for (const bool unregisterFails : {false, true}) {
        SCOPED_TRACE(unregisterFails ? "unregister fails" : "unregister works");
        for (const std::string& name : oldAgentFiles)
            writeAgentFile(name);
        writeAgentFile();
        writeAgentFile("org.example.other.plist");
        defaults.values.clear();
        service = FakeLoginItemService();
        service.currentStatus = LoginItemStatus::requiresApproval;
        if (unregisterFails)
            service.unregisterFailure = "Busy.";
        const int posts = statusChangedCount;

        EXPECT_EQ(installFailure(), "");
        for (const std::string& name : oldAgentFiles)
            EXPECT_FALSE(files.exists(agentFile(name))) << name;
        EXPECT_FALSE(files.exists(agentFile()));
        EXPECT_TRUE(files.exists(agentFile("org.example.other.plist")));
        EXPECT_TRUE(isMigrated());
        EXPECT_EQ(service.unregisterCount, 1);
        EXPECT_EQ(service.registerCount, unregisterFails ? 0 : 1);
        EXPECT_EQ(statusChangedCount, posts + 1);

        writeAgentFile(oldAgentFiles[0]);
        manager().install(defaults, notifications);
        EXPECT_TRUE(files.exists(agentFile(oldAgentFiles[0])));
        EXPECT_EQ(service.unregisterCount, 1);
    }
}

TEST_F(LaunchAgentManagerTest, AnOldAgentFileThatCannotBeRemovedStopsBeforeAnythingChanges) {
    // A folder where an old agent file would be cannot be removed as a file.
    home.write("Library/LaunchAgents/com.ledgebox.login.plist/keep", "");
    writeAgentFile("com.ledgebox.app.plist");
    service.currentStatus = LoginItemStatus::enabled;

    EXPECT_THROW(manager().install(defaults, notifications), Error);
    EXPECT_THROW(manager().uninstall(defaults, notifications), Error);
    EXPECT_TRUE(files.exists(agentFile("com.ledgebox.app.plist")));
    EXPECT_FALSE(isMigrated());
    EXPECT_EQ(service.unregisterCount, 0);
    EXPECT_EQ(statusChangedCount, 0);
}

// The status follows the service unless the agent file exists.
TEST_F(LaunchAgentManagerTest, UninstallRemovesTheAgentFileAndTheRegistration) {
    service.currentStatus = LoginItemStatus::requiresApproval;
    EXPECT_EQ(manager().statusDescription(), "requires approval");
    EXPECT_TRUE(manager().isInstalled());
    service.currentStatus = LoginItemStatus::notFound;
    EXPECT_FALSE(manager().isInstalled());
    writeAgentFile();
    EXPECT_EQ(manager().statusDescription(), "launch agent fallback");
    EXPECT_TRUE(manager().isInstalled());
    manager().uninstall(defaults, notifications);
    EXPECT_EQ(manager().statusDescription(), "not found");
    EXPECT_FALSE(files.exists(agentFile()));
    EXPECT_EQ(service.unregisterCount, 0);
    EXPECT_TRUE(isMigrated());
    EXPECT_EQ(statusChangedCount, 1);

    service.currentStatus = LoginItemStatus::enabled;
    manager().uninstall(defaults, notifications);
    EXPECT_EQ(service.unregisterCount, 1);
    EXPECT_EQ(manager().statusDescription(), "not registered");
    EXPECT_EQ(statusChangedCount, 2);

    // A failure to unregister is passed on, and nothing is announced.
    service.currentStatus = LoginItemStatus::requiresApproval;
    service.unregisterFailure = "Operation not permitted.";
    EXPECT_THROW(manager().uninstall(defaults, notifications), Error);
    EXPECT_EQ(statusChangedCount, 2);
}

} // namespace
} // namespace tidewell::testing
