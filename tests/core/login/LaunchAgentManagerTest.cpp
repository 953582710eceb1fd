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

    LaunchAgentManager manager() {
        return LaunchAgentManager(files, service, paths, installedCopy);
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

        manager().install(defaults, notifications);
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

} // namespace
} // namespace tidewell::testing
