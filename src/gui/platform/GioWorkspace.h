#pragma once

#include "core/platform/Workspace.h"

#include <string>

namespace tidewell {

// The desktop's folder handler and applications, found through their desktop entries with
// GIO. Every program is started detached in a session of its own and without this
// process's start-up and activation tokens, so that it outlives the shelf and is not
// mistaken for it. Failures are dropped.
class GioWorkspace : public Workspace {
public:
    void openFolder(const std::string& path) override;
    bool isApplicationInstalled(const std::string& applicationId) const override;
    // True as soon as the application is asked, whether or not it manages to open the folder.
    bool openWithApplication(const std::string& applicationId, const std::string& path) override;
    // Returns at once. Asks the file manager over the session bus and, only when that
    // request fails, opens the folder that holds the path instead. Needs the GLib main
    // context running, as Qt's event loop does.
    void reveal(const std::string& path) override;
};

} // namespace tidewell
