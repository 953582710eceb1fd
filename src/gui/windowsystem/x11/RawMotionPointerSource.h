#pragma once

#include "gui/windowsystem/PointerSource.h"
#include "gui/windowsystem/x11/PointerEventMonitor.h"
#include "gui/windowsystem/x11/X11Pointer.h"

namespace tidewell {

// X11: the pointer followed everywhere on the screen through raw XInput 2 events on a thread
// of their own.
class RawMotionPointerSource : public PointerSource {
public:
    RawMotionPointerSource();

    Pointer& pointer() override { return pointer_; }
    void start(WindowSystem::PointerHandler handler) override;
    void stop() override { monitor_.stop(); }
    void setInterest(const PointerInterest& interest) override;

private:
    X11Pointer pointer_;
    WindowSystem::PointerHandler handler_;
    // Last, so that it stops reporting before anything it reports to goes.
    PointerEventMonitor monitor_;
};

} // namespace tidewell
