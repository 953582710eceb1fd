#pragma once

#include "core/platform/Workspace.h"

#include <set>
#include <string>
#include <vector>

namespace tidewell::testing {

// Records every request; the installed applications are a set the test fills.
class RecordingWorkspace : public Workspace {
public:
    struct Request {
        std::string operation; // the name of the member function called
        std::string applicationId;
        std::string path;
        bool operator==(const Request&) const = default;
    };

    void openFolder(const std::string& path) override {
        requests.push_back({"openFolder", "", path});
    }
    bool isApplicationInstalled(const std::string& applicationId) const override {
        requests.push_back({"isApplicationInstalled", applicationId, ""});
        return installedApplications.contains(applicationId);
    }
    bool openWithApplication(const std::string& applicationId, const std::string& path) override {
        requests.push_back({"openWithApplication", applicationId, path});
        return installedApplications.contains(applicationId);
    }
    void reveal(const std::string& path) override { requests.push_back({"reveal", "", path}); }

    std::set<std::string> installedApplications;
    mutable std::vector<Request> requests;
};

} // namespace tidewell::testing
