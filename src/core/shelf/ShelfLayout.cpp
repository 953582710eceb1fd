#include "core/shelf/ShelfLayout.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tidewell {

namespace {
// The strip's fixed margins, as the shelf view draws them.
constexpr std::int64_t stripMargins = 59;
constexpr double minimumWidth = 200;
constexpr double contentHeight = 88;
} // namespace

ShelfLayout::ShelfLayout(MainQueue& mainQueue) : mainQueue_(mainQueue) {}

Size ShelfLayout::sizeFor(int tileCount, double availableWidth, double topInset) {
    double width = static_cast<double>(std::int64_t{tileCount} * tilePitch + stripMargins);
    if (availableWidth > 0)
        width = std::min(width, std::trunc(availableWidth));
    return {std::max(width, minimumWidth), topInset + contentHeight};
}

template <typename Value> void ShelfLayout::assign(Value& field, Value value) {
    field = std::move(value);
    changed.emit();
}

void ShelfLayout::setTopInset(double value) {
    assign(topInset_, value);
}
void ShelfLayout::setIsExpanded(bool value) {
    assign(isExpanded_, value);
}
void ShelfLayout::setIsBackgroundExpanded(bool value) {
    assign(isBackgroundExpanded_, value);
}
void ShelfLayout::setCollapsedSize(Size value) {
    assign(collapsedSize_, value);
}
void ShelfLayout::setExpandedSize(Size value) {
    assign(expandedSize_, value);
}
void ShelfLayout::setAvailableWidth(double value) {
    assign(availableWidth_, value);
}
void ShelfLayout::setIsReservingSlot(bool value) {
    assign(isReservingSlot_, value);
}

Size ShelfLayout::size(int favoritesCount, std::optional<int> reservingSlot) const {
    const int slots = reservingSlot.value_or(isReservingSlot_ ? 1 : 0);
    return sizeFor(favoritesCount + slots, availableWidth_, topInset_);
}

void ShelfLayout::reserveFolderSlot(int favoritesCount) {
    if (isReservingSlot_)
        return;
    setExpandedSize(size(favoritesCount, 1));
    assign(isReservingSlot_, true);
}

void ShelfLayout::clearFolderSlot(int favoritesCount) {
    voidScheduledSlotClears();
    if (isReservingSlot_)
        assign(isReservingSlot_, false);
    setExpandedSize(size(favoritesCount, 0));
}

void ShelfLayout::scheduleSlotClear(std::chrono::nanoseconds delay, std::function<void()> clear) {
    const std::uint64_t generation = slotClearGeneration_;
    mainQueue_.postAfter(delay, [this, generation, clear = std::move(clear)] {
        if (slotClearGeneration_ == generation)
            clear();
    });
}

void ShelfLayout::voidScheduledSlotClears() {
    ++slotClearGeneration_;
}

} // namespace tidewell
