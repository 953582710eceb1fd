#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tidewell {

// Positions found by text, for texts that outlive the index. One flat table probed in a
// line: thousands of records are indexed on every load, and a node and an allocation per
// entry cost more than the rest of the work.
class TextIndex {
public:
    // Room for up to `count` texts; nothing is allocated before the first insert.
    explicit TextIndex(std::size_t count) : count_(count) {}

    std::optional<std::size_t> find(std::string_view text) const;
    // A text that is not in the index yet.
    void insert(std::string_view text, std::size_t position);

private:
    // A slot holds a few bits of the text's hash, to pass over most others unread.
    struct Slot {
        std::uint32_t hashBits = 0;
        std::uint32_t entry = 0; // 1 + the entry's index; 0 is free
    };
    struct Entry {
        std::string_view text;
        std::size_t position;
    };

    std::size_t count_;
    std::vector<Slot> slots_;
    std::vector<Entry> entries_;
};

} // namespace tidewell
