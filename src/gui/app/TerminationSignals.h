#pragma once

#include "linux/FileDescriptor.h"

#include <QSocketNotifier>
#include <array>
#include <memory>

namespace tidewell {

// Ends the event loop when the process is asked to stop (SIGTERM at logout or from the
// desktop entry's quit action, SIGINT from a terminal), so that it ends as the menu's quit
// does: aboutToQuit runs the termination handlers. The handler only writes a byte to a pipe;
// the loop reads it. One per process, made once the Qt application exists.
class TerminationSignals {
public:
    TerminationSignals();
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    explicit TerminationSignals(std::array<int, 2> pipe);

    FileDescriptor readEnd_;
    FileDescriptor writeEnd_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace tidewell
