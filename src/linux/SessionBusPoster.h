#pragma once

#include "core/platform/DistributedNotificationCenter.h"

#include <string>

namespace tidewell {

// Posts notifications on the session bus over a connection made for the post and closed
// after it, written with the few lines of the wire protocol that this needs. The command
// line posts at most once per run, and loading a full bus library would cost it more than
// all its other work on a typical items file. Without a session bus, or when anything
// goes wrong, posting does nothing.
class SessionBusPoster : public NotificationPoster {
public:
    void post(std::string_view name) override;

    // The first unix-socket address of a D-Bus address list, as connect(2) wants it: a
    // path, or "@" followed by an abstract name. Empty when there is none or its escapes are
    // malformed.
    static std::string socketPath(std::string_view busAddress);
};

} // namespace tidewell
