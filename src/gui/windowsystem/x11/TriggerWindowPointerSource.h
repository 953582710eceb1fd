#pragma once

#include "gui/windowsystem/PointerCrossings.h"
#include "gui/windowsystem/PointerSource.h"
#include "gui/windowsystem/x11/X11Pointer.h"
#include "gui/windowsystem/x11/X11TriggerWindows.h"

namespace tidewell {

// X11 under XWayland: the pointer as the trigger windows and the panel see it. Once it has
// crossed one of them, it is where the crossings last saw it, since the X server goes on
// showing it where it left the X windows; the buttons are the server's.
class TriggerWindowPointerSource : public PointerSource, public Pointer {
public:
    TriggerWindowPointerSource(const Displays& displays, unsigned long panelWindow);

    Pointer& pointer() override { return *this; }
    void start(WindowSystem::PointerHandler handler) override;
    void stop() override;
    // The triggers follow the regions; while every move counts they stay where they are.
    void setInterest(const PointerInterest& interest) override;

    Point location() const override;
    unsigned pressedButtons() const override { return x11_.pressedButtons(); }

private:
    X11Pointer x11_;
    PointerCrossings crossings_;
    X11TriggerWindows windows_{crossings_};
};

} // namespace tidewell
