#pragma once

#include "gui/windowsystem/WindowSystem.h"

namespace tidewell {

// How a backend learns where the pointer goes, and the pointer as it then knows it.
class PointerSource {
public:
    virtual ~PointerSource() = default;

    virtual Pointer& pointer() = 0;
    // As the window system's pointer reports.
    virtual void start(WindowSystem::PointerHandler handler) = 0;
    virtual void stop() = 0;
    virtual void setInterest(const PointerInterest& interest) = 0;
};

} // namespace tidewell
