#pragma once

#include "core/platform/Error.h"
#include "core/platform/LoginItemService.h"

#include <optional>
#include <string>

namespace tidewell::testing {

// A login-item service whose status a test sets, and whose register and unregister can be
// told to fail with a given message. Successful calls change the status as the real ones do.
class FakeLoginItemService : public LoginItemService {
public:
    LoginItemStatus status() const override { return currentStatus; }
    void registerApplication() override {
        ++registerCount;
        if (registerFailure)
            throw Error(*registerFailure);
        currentStatus = LoginItemStatus::enabled;
    }
    void unregisterApplication() override {
        ++unregisterCount;
        if (unregisterFailure)
            throw Error(*unregisterFailure);
        currentStatus = LoginItemStatus::notRegistered;
    }

    LoginItemStatus currentStatus = LoginItemStatus::notRegistered;
    std::optional<std::string> registerFailure;
    std::optional<std::string> unregisterFailure;
    int registerCount = 0;
    int unregisterCount = 0;
};

} // namespace tidewell::testing
