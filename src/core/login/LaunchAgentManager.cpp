#include "core/login/LaunchAgentManager.h"

#include "core/login/PropertyList.h"
#include "core/notify/NotificationNames.h"

#include <utility>
#include <vector>

namespace tidewell {
namespace {

constexpr const char* agentLabel = "com.quorvel.tidewell.login";

// Agent files of earlier versions, by label.
const std::vector<std::string> oldAgentLabels = {
    "com.quorvel.tidewell.app",
    "com.ledgebox.login",
    "com.ledgebox.app",
};

bool countsAsInstalled(LoginItemStatus status) {
    return status == LoginItemStatus::enabled || status == LoginItemStatus::requiresApproval;
}

} // namespace

LaunchAgentManager::LaunchAgentManager(FileSystem& files, LoginItemService& service,
                                       const UserPaths& paths, ApplicationLocation application)
    : files_(files), service_(service), home_(paths.home), application_(std::move(application)) {}

bool LaunchAgentManager::isInstalled() const {
    return files_.exists(legacyPlistURL()) || countsAsInstalled(service_.status());
}

std::string LaunchAgentManager::statusDescription() const {
    if (files_.exists(legacyPlistURL()))
        return "launch agent fallback";
    switch (service_.status()) {
    case LoginItemStatus::notRegistered:
        return "not registered";
    case LoginItemStatus::enabled:
        return "enabled";
    case LoginItemStatus::requiresApproval:
        return "requires approval";
    case LoginItemStatus::notFound:
        return "not found";
    }
    return "unknown";
}

void LaunchAgentManager::install(KeyValueStore& defaults, NotificationCenter& notifications) {
    if (!defaults.boolean(didMigrateLoginItemKey).value_or(false)) {
        removeLegacyRegistration();
        if (service_.status() != LoginItemStatus::notRegistered) {
            try {
                service_.unregisterApplication();
            } catch (const Error&) {
                // A registration that cannot be removed is registered again below anyway.
            }
        }
        defaults.setBoolean(didMigrateLoginItemKey, true);
    }

    const LoginItemStatus status = service_.status();
    if (status == LoginItemStatus::notRegistered) {
        try {
            service_.registerApplication();
        } catch (const Error&) {
            installLaunchAgentFallback();
        }
    } else if (!countsAsInstalled(status)) {
        installLaunchAgentFallback();
    }
    notifications.post(tidewellLoginStatusChanged);
}

void LaunchAgentManager::uninstall(KeyValueStore& defaults, NotificationCenter& notifications) {
    removeLegacyRegistration();
    defaults.setBoolean(didMigrateLoginItemKey, true);
    if (countsAsInstalled(service_.status()))
        service_.unregisterApplication();
    notifications.post(tidewellLoginStatusChanged);
}

std::string LaunchAgentManager::legacyPlistURL() const {
    return launchAgentsFolder() + "/" + agentLabel + ".plist";
}

std::string LaunchAgentManager::launchAgentsFolder() const {
    return home_ + "/Library/LaunchAgents";
}

void LaunchAgentManager::removeLegacyRegistration() {
    std::vector<std::string> paths;
    for (const std::string& label : oldAgentLabels)
        paths.push_back(launchAgentsFolder() + "/" + label + ".plist");
    paths.push_back(legacyPlistURL());
    for (const std::string& path : paths)
        if (files_.exists(path))
            files_.removeFile(path);
}

void LaunchAgentManager::installLaunchAgentFallback() {
    if (!application_.isInstalled)
        throw LaunchAgentError(LaunchAgentError::missingExecutable);
    files_.createDirectories(launchAgentsFolder());
    const PropertyList::Dictionary agent = {
        {"Label", std::string(agentLabel)},
        {"ProgramArguments", std::vector<std::string>{"/usr/bin/open", application_.executable}},
        {"RunAtLoad", true},
        {"KeepAlive", false},
        {"ProcessType", std::string("Interactive")},
    };
    files_.writeFileAtomically(legacyPlistURL(), PropertyList::xml(agent));
}

} // namespace tidewell
