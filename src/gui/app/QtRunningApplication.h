#pragma once

#include "core/platform/RunningApplication.h"

#include <QCoreApplication>

namespace tidewell {

// The Qt application of this process: terminating ends its event loop, after which
// aboutToQuit runs the termination handlers.
class QtRunningApplication : public RunningApplication {
public:
    void terminate() override { QCoreApplication::quit(); }
};

} // namespace tidewell
