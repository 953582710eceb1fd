#include "core/shelf/NotchPanelController.h"

#include "core/notify/InterfaceNotificationNames.h"
#include "core/shelf/ScreenNotchGeometry.h"
#include "core/shelf/ShelfMeasurements.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tidewell {

namespace {
using Seconds = std::chrono::duration<double>;

constexpr Rect initialPanelFrame{{0, 0}, {420, 86}};
constexpr double fallbackNotchWidth = 180;
constexpr double displayWidthMargin = 64;
// While files are dragged the trigger reaches this far beside the notch and this far down.
constexpr double dragTriggerSideReach = 56;
constexpr double dragTriggerHeight = 160;
// The panel counts as under the pointer a little beyond its edges.
constexpr double panelSlackX = 12;
constexpr double panelSlackY = 10;
// Differences below this are rounding, not a new size or place.
constexpr double sizeTolerance = 0.5;

constexpr Seconds backgroundExpandDelay{0.165};
constexpr Seconds openingDuration{0.3};
constexpr Seconds backgroundCollapseDelay{0.1};
constexpr Seconds closingDuration{0.33};
constexpr Seconds leaveCloseDelay{0.45};
constexpr Seconds exactFrameDelay{0.25};

Point centre(const Rect& rect) {
    return {rect.minX() + rect.width() / 2, rect.minY() + rect.height() / 2};
}

// A rectangle of `size` centred on the display's top edge, hanging down from it.
Rect hangingFromTop(const Display& display, Size size) {
    return {{centre(display.frame).x - size.width / 2, display.frame.maxY() - size.height}, size};
}

double notchWidth(const Display& display) {
    return ScreenNotchGeometry::inferredNotchWidth(
        display.auxiliaryTopLeftArea, display.auxiliaryTopRightArea, fallbackNotchWidth);
}

bool differs(Size a, Size b, double tolerance) {
    return std::abs(a.width - b.width) >= tolerance || std::abs(a.height - b.height) >= tolerance;
}
} // namespace

NotchPanelController::NotchPanelController(Services services)
    : services_(services), layout_(services.queue) {
    configure();
    observePrivacy();
    observeMenuTracking();
    observeItems();
}

NotchPanelController::~NotchPanelController() {
    cancelHide();
    if (screenObserver_)
        services_.localCenter.removeObserver(*screenObserver_);
    for (const ObserverToken token : menuTrackingObservers_)
        services_.localCenter.removeObserver(token);
}

void NotchPanelController::configure() {
    services_.panel.setFrame(initialPanelFrame);
    services_.panel.setAlpha(0);
    hidesFromScreenCapture_ = services_.appearance.hideFromScreenCapture();
    services_.panel.setSharingHidden(hidesFromScreenCapture_);
}

void NotchPanelController::observePrivacy() {
    privacyConnection_ = services_.appearance.changed.connect([this] {
        post([this] {
            const bool hides = services_.appearance.hideFromScreenCapture();
            if (hides == hidesFromScreenCapture_)
                return;
            hidesFromScreenCapture_ = hides;
            services_.panel.setSharingHidden(hides);
        });
    });
}

void NotchPanelController::observeMenuTracking() {
    menuTrackingObservers_.push_back(
        services_.localCenter.addObserver(menuDidBeginTracking, [this] { menuTrackingBegan(); }));
    menuTrackingObservers_.push_back(
        services_.localCenter.addObserver(menuDidEndTracking, [this] { menuTrackingEnded(); }));
}

void NotchPanelController::observeItems() {
    pinnedCount_ = services_.store.favorites().size();
    itemsConnection_ = services_.store.itemsChanged.connect([this] {
        post([this] {
            repositionVisible();
            followPinnedCount();
        });
    });
    wasReservingSlot_ = layout_.isReservingSlot();
    slotConnection_ = layout_.changed.connect([this] {
        if (layout_.isReservingSlot() == wasReservingSlot_)
            return;
        wasReservingSlot_ = layout_.isReservingSlot();
        post([this] { repositionVisible(); });
    });
}

void NotchPanelController::post(MainQueue::Task task) {
    services_.queue.post([alive = std::weak_ptr(isAlive_), task = std::move(task)] {
        if (alive.lock())
            task();
    });
}

MainQueue::TaskId NotchPanelController::postAfter(Seconds delay, MainQueue::Task task) {
    return services_.queue.postAfter(std::chrono::round<std::chrono::nanoseconds>(delay),
                                     [alive = std::weak_ptr(isAlive_), task = std::move(task)] {
                                         if (alive.lock())
                                             task();
                                     });
}

void NotchPanelController::start() {
    screenObserver_ = services_.localCenter.addObserver(screenParametersDidChange, [this] {
        repositionVisible();
        updatePointerInterest();
    });
    updatePointerInterest();
    pointerMoved(services_.pointer.location());
}

void NotchPanelController::pointerReported(Point location) {
    post([this, location] { pointerMoved(location); });
}

std::optional<Display> NotchPanelController::screen(const Point& point) const {
    for (const Display& display : services_.displays.all())
        if (display.frame.contains(point))
            return display;
    return std::nullopt;
}

bool NotchPanelController::isDraggingFiles() const {
    return (services_.pointer.pressedButtons() & Pointer::primaryButton) != 0 &&
           services_.dragPasteboard.offersFiles();
}

Rect NotchPanelController::openTrigger(const Display& display) const {
    return openTrigger(display, isDraggingFiles());
}

Rect NotchPanelController::openTrigger(const Display& display, bool draggingFiles) const {
    double height = topInset(display);
    double width = notchWidth(display);
    if (draggingFiles) {
        height = std::max(height, dragTriggerHeight);
        width += 2 * dragTriggerSideReach;
    }
    return hangingFromTop(display, {width, height});
}

// While the panel is off screen with no close armed, only a move into a trigger does anything.
void NotchPanelController::updatePointerInterest() {
    PointerInterest interest{.everywhere = panelState_ != PanelState::hidden ||
                                           services_.panel.isVisible() || hideWorkItem_,
                             .regions = {}};
    if (!interest.everywhere)
        for (const Display& display : services_.displays.all())
            interest.regions.push_back(openTrigger(display, false));
    if (interest == pointerInterest_)
        return;
    pointerInterest_ = std::move(interest);
    pointerInterestChanged.emit();
}

bool NotchPanelController::isInsideGrownPanel(const Point& location) const {
    return services_.panel.isVisible() &&
           services_.panel.frame().grown(panelSlackX, panelSlackY).contains(location);
}

bool NotchPanelController::pointerIsInsideInteractiveRegion(const Point& location) const {
    if (isInsideGrownPanel(location))
        return true;
    const auto display = screen(location);
    return display && openTrigger(*display).contains(location);
}

void NotchPanelController::pointerMoved(const Point& location) {
    const auto display = screen(location);
    if (display && openTrigger(*display).contains(location)) {
        cancelHide();
        show(*display);
        return;
    }
    if (display && isInsideGrownPanel(location)) {
        cancelHide();
        return;
    }
    if (services_.panel.isVisible() && !isMenuTracking_)
        scheduleHide(leaveCloseDelay);
}

Rect NotchPanelController::shelfFrame(const Display& display) {
    layout_.setTopInset(topInset(display));
    layout_.setAvailableWidth(display.frame.width() - displayWidthMargin);
    const auto favoritesCount = static_cast<int>(services_.store.favorites().size());
    return hangingFromTop(display, shelfSize(display, layout_, favoritesCount));
}

void NotchPanelController::show(const Display& display) {
    cancelHide();
    const Rect frame = shelfFrame(display);
    if (panelState_ == PanelState::showing)
        return;
    if (panelState_ == PanelState::visible) {
        syncVisibleFrameIfNeeded(frame, frame.size);
        return;
    }
    openFrom(panelState_, frame, display);
}

void NotchPanelController::openFrom(PanelState previous, const Rect& frame,
                                    const Display& display) {
    const std::uint64_t generation = ++transitionGeneration_;
    panelState_ = PanelState::showing;
    layout_.setCollapsedSize({notchWidth(display), layout_.topInset()});
    layout_.setExpandedSize(frame.size);
    services_.panel.setAlpha(1);
    services_.panel.setFrame(frame);
    services_.panel.orderFrontWithoutActivating();
    updatePointerInterest();

    // A close that has not yet shrunk the background is simply taken back.
    if (previous == PanelState::hiding && layout_.isBackgroundExpanded()) {
        layout_.setIsExpanded(true);
        panelState_ = PanelState::visible;
        return;
    }
    layout_.setIsExpanded(false);
    layout_.setIsBackgroundExpanded(false);
    post([this, generation] {
        if (transitionGeneration_ == generation)
            layout_.setIsBackgroundExpanded(true);
    });
    postAfter(backgroundExpandDelay, [this, generation] {
        if (transitionGeneration_ == generation)
            layout_.setIsExpanded(true);
    });
    postAfter(openingDuration, [this, generation] {
        if (transitionGeneration_ != generation)
            return;
        panelState_ = PanelState::visible;
        repositionVisible(); // items may have changed while it opened
    });
}

void NotchPanelController::hide() {
    if (panelState_ != PanelState::showing && panelState_ != PanelState::visible)
        return;
    cancelHide();
    const std::uint64_t generation = ++transitionGeneration_;
    panelState_ = PanelState::hiding;
    layout_.setIsExpanded(false);
    postAfter(backgroundCollapseDelay, [this, generation] {
        if (transitionGeneration_ == generation)
            layout_.setIsBackgroundExpanded(false);
    });
    postAfter(closingDuration, [this, generation] {
        if (transitionGeneration_ != generation)
            return;
        services_.panel.orderOut();
        panelState_ = PanelState::hidden;
        updatePointerInterest();
    });
}

void NotchPanelController::cancelHide() {
    if (!hideWorkItem_)
        return;
    services_.queue.cancel(*std::exchange(hideWorkItem_, std::nullopt));
    updatePointerInterest();
}

void NotchPanelController::scheduleHide(Seconds delay) {
    if (hideWorkItem_)
        return;
    hideWorkItem_ = postAfter(delay, [this] {
        hideWorkItem_.reset();
        if (!isMenuTracking_ && !pointerIsInsideInteractiveRegion(services_.pointer.location()))
            hide();
        updatePointerInterest();
    });
    updatePointerInterest();
}

void NotchPanelController::syncVisibleFrameIfNeeded(const Rect& frame, Size contentSize) {
    const Rect panelFrame = services_.panel.frame();
    const bool changed = differs(layout_.expandedSize(), contentSize, sizeTolerance);
    const bool grows = contentSize.width > panelFrame.width() + sizeTolerance ||
                       contentSize.height > panelFrame.height() + sizeTolerance;
    // Another display, or its own that moved: the panel follows at once, whatever its size.
    const bool moves = std::abs(centre(panelFrame).x - centre(frame).x) >= sizeTolerance ||
                       std::abs(panelFrame.maxY() - frame.maxY()) >= sizeTolerance;
    if (changed || grows || moves)
        applyFrame(frame);
}

void NotchPanelController::applyFrame(const Rect& frame) {
    const Size expanded = layout_.expandedSize();
    const bool sizeChanged = std::abs(expanded.width - frame.width()) > sizeTolerance ||
                             std::abs(expanded.height - frame.height()) > sizeTolerance;
    if (!services_.panel.isVisible()) {
        services_.panel.setFrame(frame);
        if (sizeChanged)
            layout_.setExpandedSize(frame.size);
        return;
    }
    // The panel never shrinks before the drawing inside it has.
    const std::uint64_t generation = ++resizeGeneration_;
    const double width = std::max(services_.panel.frame().width(), frame.width());
    services_.panel.setFrame(
        {{centre(frame).x - width / 2, frame.minY()}, {width, frame.height()}});
    if (sizeChanged)
        layout_.setExpandedSize(frame.size);
    postAfter(exactFrameDelay, [this, generation, frame] {
        if (resizeGeneration_ == generation)
            services_.panel.setFrame(frame);
    });
}

void NotchPanelController::repositionVisible() {
    if (panelState_ != PanelState::visible || !services_.panel.isVisible())
        return;
    auto display = screen(centre(services_.panel.frame()));
    if (!display) {
        const auto displays = services_.displays.all();
        if (displays.empty())
            return;
        display = displays.front();
    }
    const Rect frame = shelfFrame(*display);
    syncVisibleFrameIfNeeded(frame, frame.size);
}

// While the panel still opens, the drawing alone takes the new size; the panel follows
// when the opening has finished.
void NotchPanelController::followPinnedCount() {
    const std::size_t count = services_.store.favorites().size();
    if (std::exchange(pinnedCount_, count) == count || !layout_.isBackgroundExpanded())
        return;
    layout_.setExpandedSize(layout_.size(static_cast<int>(count)));
}

void NotchPanelController::menuTrackingBegan() {
    isMenuTracking_ = true;
    cancelHide();
}

void NotchPanelController::menuTrackingEnded() {
    isMenuTracking_ = false;
    if (!pointerIsInsideInteractiveRegion(services_.pointer.location()))
        scheduleHide(leaveCloseDelay);
}

} // namespace tidewell
