#include "core/items/TextIndex.h"

#include <bit>
#include <functional>

namespace tidewell {
namespace {

std::uint32_t hashBitsOf(std::size_t hash) {
    return static_cast<std::uint32_t>(static_cast<std::uint64_t>(hash) >> 32);
}

} // namespace

std::optional<std::size_t> TextIndex::find(std::string_view text) const {
    if (slots_.empty())
        return std::nullopt;
    const std::size_t hash = std::hash<std::string_view>{}(text);
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t index = hash & mask; slots_[index].entry != 0; index = (index + 1) & mask) {
        const Slot& slot = slots_[index];
        if (slot.hashBits == hashBitsOf(hash) && entries_[slot.entry - 1].text == text)
            return entries_[slot.entry - 1].position;
    }
    return std::nullopt;
}

// At most two thirds of the slots are taken, so that probes stay short.
void TextIndex::insert(std::string_view text, std::size_t position) {
    if (slots_.empty()) {
        slots_.resize(std::bit_ceil(count_ + count_ / 2 + 1));
        entries_.reserve(count_);
    }
    const std::size_t hash = std::hash<std::string_view>{}(text);
    const std::size_t mask = slots_.size() - 1;
    std::size_t index = hash & mask;
    while (slots_[index].entry != 0)
        index = (index + 1) & mask;
    entries_.push_back({text, position});
    slots_[index] = {hashBitsOf(hash), static_cast<std::uint32_t>(entries_.size())};
}

} // namespace tidewell
