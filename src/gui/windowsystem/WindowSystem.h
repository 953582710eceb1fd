#pragma once

#include "core/platform/Geometry.h"

#include <functional>

class QQuickView;
class QRectF;

namespace tidewell {

class Displays;
class DragPasteboard;
class PanelWindow;
class Pointer;
struct PointerInterest;

// What the shelf needs from the window system it runs on: the panel window and the view in
// it, the displays, the pointer, what other applications drag, and reports of the pointer
// moves that can matter. One backend per window system, chosen once at start; nothing above
// this interface knows which one runs. Main thread only.
class WindowSystem {
public:
    // Where the pointer is now, in points from the primary display's bottom-left.
    using PointerHandler = std::function<void(Point)>;

    virtual ~WindowSystem() = default;

    virtual PanelWindow& panel() = 0;
    virtual QQuickView& panelView() = 0;
    // The shelf's outline as drawn now, in the panel view's logical pixels: the pointer
    // reaches the panel inside it and passes through to the windows below elsewhere.
    virtual void setPanelOutline(const QRectF& rect, double topRadius, double bottomRadius) = 0;
    // Whether the panel can be kept out of screen captures and recordings here.
    virtual bool canHideFromSharing() const = 0;

    virtual Displays& displays() = 0;
    virtual Pointer& pointer() = 0;
    virtual DragPasteboard& dragPasteboard() = 0;

    // Starts reporting pointer moves to the handler, on the calling thread.
    virtual void startPointerReports(PointerHandler handler) = 0;
    // None arrives once this returns.
    virtual void stopPointerReports() = 0;
    // Where moves can matter: moves elsewhere may go unreported.
    virtual void setPointerInterest(const PointerInterest& interest) = 0;
};

} // namespace tidewell
