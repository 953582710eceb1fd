#pragma once

#include "core/platform/Geometry.h"

namespace tidewell {

// The borderless, non-activating window that carries the shelf above every other window
// at the top of a display. It never takes focus and never sizes itself.
class PanelWindow {
public:
    virtual ~PanelWindow() = default;
    virtual Rect frame() const = 0;
    virtual void setFrame(const Rect& frame) = 0;
    virtual void setAlpha(double alpha) = 0;
    virtual double alpha() const = 0;
    // Brings the window up without activating the application or taking keyboard focus.
    virtual void orderFrontWithoutActivating() = 0;
    virtual void orderOut() = 0;
    virtual bool isVisible() const = 0;
    // Keeps the window out of screen captures and recordings where the system allows it.
    virtual void setSharingHidden(bool hidden) = 0;
};

} // namespace tidewell
