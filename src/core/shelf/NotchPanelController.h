#pragma once

#include "core/notify/NotificationCenter.h"
#include "core/observe/Signal.h"
#include "core/platform/Display.h"
#include "core/platform/DragPasteboard.h"
#include "core/platform/MainQueue.h"
#include "core/platform/PanelWindow.h"
#include "core/platform/Pointer.h"
#include "core/settings/AppearanceSettings.h"
#include "core/shelf/PanelState.h"
#include "core/shelf/PointerInterest.h"
#include "core/shelf/ShelfLayout.h"
#include "core/store/ItemStore.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace tidewell {

// Decides when the shelf's panel at the top centre of a display opens and closes: it opens
// when the pointer enters the open trigger around the notch and closes shortly after the
// pointer has left the panel. Opening and closing are staged through the layout's flags;
// every delayed stage checks a generation counter so that a newer sequence voids it. Also
// keeps the panel's size in step with the tiles and the displays, and holds the shelf open
// while a menu is open. Main thread only.
class NotchPanelController {
public:
    struct Services {
        PanelWindow& panel;
        Displays& displays;
        Pointer& pointer;
        DragPasteboard& dragPasteboard;
        MainQueue& queue;
        NotificationCenter& localCenter;
        ItemStore& store;
        AppearanceSettings& appearance;
    };

    explicit NotchPanelController(Services services);
    ~NotchPanelController();
    NotchPanelController(const NotchPanelController&) = delete;
    NotchPanelController& operator=(const NotchPanelController&) = delete;

    // Follows display changes and opens the shelf if the pointer already rests in a trigger.
    void start();
    // For the pointer monitor: handles the position as a task of its own.
    void pointerReported(Point location);
    // Opens the shelf on `display`, or fits an open shelf to it.
    void show(const Display& display);
    // Closes the shelf after `delay` unless the pointer is over it then or a menu is open.
    // An armed close is never postponed.
    void scheduleHide(std::chrono::duration<double> delay);
    // The first display whose frame holds `point`.
    std::optional<Display> screen(const Point& point) const;

    ShelfLayout& layout() { return layout_; }
    PanelState panelState() const { return panelState_; }
    // Where a pointer move can change anything here; `pointerInterestChanged` follows it.
    const PointerInterest& pointerInterest() const { return pointerInterest_; }
    Signal<> pointerInterestChanged;

private:
    void configure();
    void observePrivacy();
    void observeMenuTracking();
    void observeItems();
    void post(MainQueue::Task task);
    MainQueue::TaskId postAfter(std::chrono::duration<double> delay, MainQueue::Task task);

    void pointerMoved(const Point& location);
    bool pointerIsInsideInteractiveRegion(const Point& location) const;
    bool isInsideGrownPanel(const Point& location) const;
    Rect openTrigger(const Display& display) const;
    Rect openTrigger(const Display& display, bool draggingFiles) const;
    void updatePointerInterest();
    bool isDraggingFiles() const;
    Rect shelfFrame(const Display& display);
    void openFrom(PanelState previous, const Rect& frame, const Display& display);
    void hide();
    void cancelHide();
    void syncVisibleFrameIfNeeded(const Rect& frame, Size contentSize);
    void applyFrame(const Rect& frame);
    void repositionVisible();
    // A change in the number of pinned items resizes the expanded drawing.
    void followPinnedCount();
    void menuTrackingBegan();
    void menuTrackingEnded();

    Services services_;
    ShelfLayout layout_;
    PanelState panelState_ = PanelState::hidden;
    std::uint64_t transitionGeneration_ = 0;
    std::uint64_t resizeGeneration_ = 0;
    std::optional<MainQueue::TaskId> hideWorkItem_;
    bool hidesFromScreenCapture_ = false;
    bool wasReservingSlot_ = false;
    std::size_t pinnedCount_ = 0;
    Connection privacyConnection_;
    Connection itemsConnection_;
    Connection slotConnection_;
    std::optional<ObserverToken> screenObserver_;
    std::vector<ObserverToken> menuTrackingObservers_;
    bool isMenuTracking_ = false;
    PointerInterest pointerInterest_;
    // Queued tasks check it, so that none runs after the controller is gone.
    std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
};

} // namespace tidewell
