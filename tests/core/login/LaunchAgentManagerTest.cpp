#include "core/login/LaunchAgentManager.h"

#include "core/notify/NotificationNames.h"
#include "linux/PosixFileSystem.h"
#include "support/FakeKeyValueStore.h"
#include "support/FakeLoginItemService.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace tidewell::testing {

// A registration that cannot be removed is made again anyway.
TEST(LaunchAgentManagerTest, FirstInstallCleansUpOldRegistrationsOnce) {
    TemporaryDirectory home;
    PosixFileSystem files;
    FakeLoginItemService service;
    FakeKeyValueStore defaults;
    NotificationCenter notifications{[](MainQueue::Task task) { task(); }};
    int statusChanges = 0;
    notifications.addObserver(tidewellLoginStatusChanged, [&] { ++statusChanges; });
    const auto install = [&] {
        LaunchAgentManager(files, service, {home.path(), home.path() + "/.local/share"},
                           {"/usr/local/bin/tidewell", true})
            .install(defaults, notifications);
    };
    const auto agentFile = [&](const std::string& name) {
        return home.path() + "/Library/LaunchAgents/" + name;
    };
    const std::vector<std::string> oldAgentFiles = {
        "com.quorvel.tidewell.app.plist", "com.ledgebox.login.plist", "com.ledgebox.app.plist",
        "com.quorvel.tidewell.login.plist"};
    for (const bool unregisterFails : {false, true}) {
        SCOPED_TRACE(unregisterFails ? "unregister fails" : "unregister works");
        for (const std::string& name : oldAgentFiles)
            home.write("Library/LaunchAgents/" + name, "old");
        home.write("Library/LaunchAgents/org.example.other.plist", "other");
        defaults.values.clear();
        service = FakeLoginItemService();
        service.currentStatus = LoginItemStatus::requiresApproval;
        if (unregisterFails)
            service.unregisterFailure = "Busy.";
        const int posts = statusChanges;

        install();
        for (const std::string& name : oldAgentFiles)
            EXPECT_FALSE(files.exists(agentFile(name))) << name;
        EXPECT_TRUE(files.exists(agentFile("org.example.other.plist")));
        EXPECT_EQ(defaults.boolean("Tidewell.didMigrateLoginItem"), true);
        EXPECT_EQ(service.unregisterCount, 1);
        EXPECT_EQ(service.registerCount, unregisterFails ? 0 : 1);
        EXPECT_EQ(statusChanges, posts + 1);

        home.write("Library/LaunchAgents/" + oldAgentFiles[0], "old");
        install();
        EXPECT_TRUE(files.exists(agentFile(oldAgentFiles[0])));
        EXPECT_EQ(service.unregisterCount, 1);
    }
}

} // namespace tidewell::testing
