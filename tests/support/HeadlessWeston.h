#pragma once

#include "support/ChildProcess.h"

#include <string>

namespace tidewell::testing {

// A Wayland compositor without layer shell, as GNOME's is: weston on its headless backend,
// listening on a socket in the runtime folder given. Ready once made.
class HeadlessWeston {
public:
    // What WAYLAND_DISPLAY names.
    static constexpr const char* socket = "tidewell-weston";

    explicit HeadlessWeston(const std::string& runtimeFolder);

private:
    ChildProcess process_;
};

} // namespace tidewell::testing
