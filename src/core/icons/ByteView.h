#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tidewell {

// Fixed-width integers and tags read from untrusted bytes: a read that would reach past
// the end has no value instead of touching memory that is not there.
class ByteView {
public:
    enum class Order { littleEndian, bigEndian };

    explicit ByteView(std::string_view bytes) : bytes_(bytes) {}

    std::size_t size() const { return bytes_.size(); }

    bool contains(std::size_t offset, std::size_t length) const {
        return offset <= bytes_.size() && length <= bytes_.size() - offset;
    }

    bool hasTag(std::size_t offset, std::string_view tag) const {
        return contains(offset, tag.size()) && bytes_.substr(offset, tag.size()) == tag;
    }

    std::optional<std::string_view> slice(std::size_t offset, std::size_t length) const {
        if (!contains(offset, length))
            return std::nullopt;
        return bytes_.substr(offset, length);
    }

    // An unsigned integer of 1 to 4 bytes.
    std::optional<std::uint32_t> unsignedInteger(std::size_t offset, std::size_t width,
                                                 Order order) const {
        if (width == 0 || width > 4 || !contains(offset, width))
            return std::nullopt;
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < width; ++i) {
            const std::size_t index = order == Order::bigEndian ? i : width - 1 - i;
            value = (value << 8) | static_cast<unsigned char>(bytes_[offset + index]);
        }
        return value;
    }

    std::optional<std::uint32_t> byte(std::size_t offset) const {
        return unsignedInteger(offset, 1, Order::littleEndian);
    }

private:
    std::string_view bytes_;
};

} // namespace tidewell
