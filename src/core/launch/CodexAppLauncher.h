#pragma once

#include "core/platform/Workspace.h"

#include <string>

namespace tidewell {

// The Codex desktop application, found by its desktop-entry id.
class CodexAppLauncher {
public:
    static constexpr const char* applicationId = "com.openai.codex";

    explicit CodexAppLauncher(Workspace& workspace) : workspace_(workspace) {}

    bool isInstalled() const { return workspace_.isApplicationInstalled(applicationId); }
    // Asks the application to open the folder; false when it is not installed.
    bool open(const std::string& folder) {
        return workspace_.openWithApplication(applicationId, folder);
    }

private:
    Workspace& workspace_;
};

} // namespace tidewell
