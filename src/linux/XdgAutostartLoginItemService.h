#pragma once

#include "core/platform/ApplicationLocation.h"
#include "core/platform/FileSystem.h"
#include "core/platform/LoginItemService.h"

#include <string>

namespace tidewell {

// Launch at login through an XDG autostart entry in <config home>/autostart. A copy that
// is not installed reports "not found"; approval is never required.
class XdgAutostartLoginItemService : public LoginItemService {
public:
    XdgAutostartLoginItemService(FileSystem& files, const std::string& configHome,
                                 ApplicationLocation application);

    LoginItemStatus status() const override;
    void registerApplication() override;
    void unregisterApplication() override;

    std::string entryPath() const;

private:
    FileSystem& files_;
    std::string autostartFolder_;
    ApplicationLocation application_;
};

} // namespace tidewell
