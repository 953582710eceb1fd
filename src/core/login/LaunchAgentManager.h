#pragma once

#include "core/login/LaunchAgentError.h"
#include "core/notify/NotificationCenter.h"
#include "core/platform/ApplicationLocation.h"
#include "core/platform/FileSystem.h"
#include "core/platform/KeyValueStore.h"
#include "core/platform/LoginItemService.h"
#include "core/platform/UserPaths.h"

#include <string>

namespace tidewell {

// Starting the application at login: through the desktop's login-item service, with a
// per-user launch agent file as the fallback, and the clean-up of the registrations
// older versions left behind. Holds no state: every answer is read afresh.
class LaunchAgentManager {
public:
    // The preference that records that the one-time clean-up has been done.
    static constexpr const char* didMigrateLoginItemKey = "Tidewell.didMigrateLoginItem";

    LaunchAgentManager(FileSystem& files, LoginItemService& service, const UserPaths& paths,
                       ApplicationLocation application);

    bool isInstalled() const;
    std::string statusDescription() const;
    // Both post "Tidewell.loginStatusChanged" on success and throw Error on failure.
    void install(KeyValueStore& defaults, NotificationCenter& notifications);
    void uninstall(KeyValueStore& defaults, NotificationCenter& notifications);
    // The fallback launch agent file.
    std::string legacyPlistURL() const;

private:
    std::string launchAgentsFolder() const;
    void removeLegacyRegistration();
    void installLaunchAgentFallback();

    FileSystem& files_;
    LoginItemService& service_;
    std::string home_;
    ApplicationLocation application_;
};

} // namespace tidewell
