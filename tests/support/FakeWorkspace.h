#pragma once

#include "core/platform/Workspace.h"

#include <set>
#include <string>
#include <vector>

namespace tidewell::testing {

// Records every request instead of asking the desktop. Applications in `installedApplications`
// are installed; opening with another is recorded too and answers false.
class FakeWorkspace : public Workspace {
public:
    enum class Operation { openFolder, openWithApplication, reveal };
    struct Call {
        Operation operation;
        std::string path;
        std::string applicationId; // empty unless opening with an application
        bool operator==(const Call&) const = default;
    };

    void openFolder(const std::string& path) override {
        calls.push_back({Operation::openFolder, path});
    }
    bool isApplicationInstalled(const std::string& applicationId) const override {
        return installedApplications.contains(applicationId);
    }
    bool openWithApplication(const std::string& applicationId, const std::string& path) override {
        calls.push_back({Operation::openWithApplication, path, applicationId});
        return isApplicationInstalled(applicationId);
    }
    void reveal(const std::string& path) override { calls.push_back({Operation::reveal, path}); }

    std::set<std::string> installedApplications;
    std::vector<Call> calls;
};

} // namespace tidewell::testing
