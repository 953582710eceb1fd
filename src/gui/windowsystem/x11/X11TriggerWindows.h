#pragma once

#include <QRect>
#include <QSocketNotifier>
#include <memory>
#include <vector>

struct _XDisplay;
union _XEvent;

namespace tidewell {

class PointerCrossings;

// Input-only windows that take the pointer at the shelf's triggers and nowhere else, above
// the other windows, and the pointer's moves over them and over the windows watched, told to
// the crossings. Under XWayland an X client learns of the pointer only over its own windows,
// so these stand in for the pointer followed everywhere. Over a connection of its own, served
// on the main thread.
class X11TriggerWindows {
public:
    explicit X11TriggerWindows(PointerCrossings& crossings);
    ~X11TriggerWindows();
    X11TriggerWindows(const X11TriggerWindows&) = delete;
    X11TriggerWindows& operator=(const X11TriggerWindows&) = delete;

    // Moves over this window count too.
    void watch(unsigned long window);
    // One window over each of these root-window rectangles; none while the list is empty.
    void setRegions(const std::vector<QRect>& regions);

private:
    void readEvents();
    // Raises the triggers when another window is mapped or restacked.
    void keepAbove(const _XEvent& event);
    bool isTrigger(unsigned long window) const;
    void raise();

    PointerCrossings& crossings_;
    _XDisplay* display_;
    std::unique_ptr<QSocketNotifier> notifier_;
    std::vector<unsigned long> windows_;
    std::vector<QRect> regions_;
};

} // namespace tidewell
