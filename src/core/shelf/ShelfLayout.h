#pragma once

#include "core/observe/Signal.h"
#include "core/platform/Geometry.h"
#include "core/platform/MainQueue.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>

namespace tidewell {

// Every number that decides where the shelf sits and how big it is, shared by the panel
// controller (the writer) and the views. Each assignment stores the value, even an
// unchanged one, and then emits `changed`. Main thread only.
class ShelfLayout {
public:
    // From one tile's left edge to the next one's.
    static constexpr std::int64_t tilePitch = 66;

    explicit ShelfLayout(MainQueue& mainQueue);

    // The shelf's size for `tileCount` tiles: a 66-point pitch plus 59 points of margins,
    // capped at `availableWidth` (whole points; 0 = no cap), at least 200 wide, and 88
    // points taller than the top inset.
    static Size sizeFor(int tileCount, double availableWidth, double topInset);

    double topInset() const { return topInset_; }
    bool isExpanded() const { return isExpanded_; }
    bool isBackgroundExpanded() const { return isBackgroundExpanded_; }
    Size collapsedSize() const { return collapsedSize_; }
    Size expandedSize() const { return expandedSize_; }
    bool isReservingSlot() const { return isReservingSlot_; }
    double availableWidth() const { return availableWidth_; }
    std::uint64_t slotClearGeneration() const { return slotClearGeneration_; }

    void setTopInset(double value);
    void setIsExpanded(bool value);
    void setIsBackgroundExpanded(bool value);
    void setCollapsedSize(Size value);
    void setExpandedSize(Size value);
    void setAvailableWidth(double value);
    // Only the flag: the size stays until the next resize.
    void setIsReservingSlot(bool value);

    // Without `reservingSlot`, one slot is added while a slot is reserved.
    Size size(int favoritesCount, std::optional<int> reservingSlot = std::nullopt) const;

    // Makes room for a folder dragged over the shelf; the size grows before the flag is
    // raised, so observers of the flag find the larger size.
    void reserveFolderSlot(int favoritesCount);
    // Closes the reserved slot and voids pending clears; recomputes the size even when no
    // slot was reserved.
    void clearFolderSlot(int favoritesCount);
    // Runs `clear` on the main queue after `delay` unless the generation moved meanwhile.
    void scheduleSlotClear(std::chrono::nanoseconds delay, std::function<void()> clear);
    // Keeps a reserved slot open against every clear scheduled so far.
    void voidScheduledSlotClears();

    Signal<> changed;

private:
    template <typename Value> void assign(Value& field, Value value);

    MainQueue& mainQueue_;
    double topInset_ = 0;
    bool isExpanded_ = false;
    bool isBackgroundExpanded_ = false;
    Size collapsedSize_;
    Size expandedSize_;
    bool isReservingSlot_ = false;
    double availableWidth_ = 0;
    std::uint64_t slotClearGeneration_ = 0;
};

} // namespace tidewell
