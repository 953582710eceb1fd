#pragma once

namespace tidewell {

// This application's process as a whole.
class RunningApplication {
public:
    virtual ~RunningApplication() = default;
    // Ends the event loop; the termination handlers run before the process ends.
    virtual void terminate() = 0;
};

} // namespace tidewell
