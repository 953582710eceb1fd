#pragma once

#include <string>

namespace tidewell {

// The desktop's handling of folders and applications. Every operation is best effort:
// failures are dropped, as a click on a missing folder is nothing to report.
class Workspace {
public:
    virtual ~Workspace() = default;
    // Opens the folder with the desktop's default handler for folders (the file manager).
    virtual void openFolder(const std::string& path) = 0;
    // Whether an application with this desktop-entry id (without ".desktop") is installed.
    virtual bool isApplicationInstalled(const std::string& applicationId) const = 0;
    // Asks the application to open the folder; false when it is not installed.
    virtual bool openWithApplication(const std::string& applicationId, const std::string& path) = 0;
    // Shows the folder selected in a file-manager window.
    virtual void reveal(const std::string& path) = 0;
};

} // namespace tidewell
