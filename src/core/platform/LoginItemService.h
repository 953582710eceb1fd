#pragma once

namespace tidewell {

// The raw values are those the service reports; anything else reads as "unknown".
enum class LoginItemStatus : int {
    notRegistered = 0,
    enabled = 1,
    requiresApproval = 2,
    notFound = 3,
};

// The desktop's own way of starting the application at login. Register and unregister
// throw Error on failure.
class LoginItemService {
public:
    virtual ~LoginItemService() = default;
    virtual LoginItemStatus status() const = 0;
    virtual void registerApplication() = 0;
    virtual void unregisterApplication() = 0;
};

} // namespace tidewell
