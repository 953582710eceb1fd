#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tidewell {

// Fixed-width integers and tags read from untrusted bytes: a read that would reach past
// the end has no value instead of touching memory that is not there.
//
// A file is seen through its first bytes. Where a header points beyond them (a JPEG frame
// after large metadata, a TIFF directory at the end), a few small pieces more are read on
// demand; past that budget, bytes have no value as if the file ended there.
class ByteView {
public:
    enum class Order { littleEndian, bigEndian };
    // Up to `length` bytes from `offset` on: fewer at the end of the file, none on failure.
    using Reader =
        std::function<std::optional<std::string>(std::size_t offset, std::size_t length)>;

    // All the bytes there are.
    explicit ByteView(std::string_view bytes) : start_(bytes) {}
    // The first bytes of a file, and the way to read more of it.
    ByteView(std::string_view start, Reader readMore)
        : start_(start), readMore_(std::move(readMore)) {}

    std::string_view start() const { return start_; }

    bool contains(std::size_t offset, std::size_t length) const {
        return slice(offset, length).has_value();
    }

    bool hasTag(std::size_t offset, std::string_view tag) const {
        return slice(offset, tag.size()) == tag;
    }

    std::optional<std::string_view> slice(std::size_t offset, std::size_t length) const;

    // An unsigned integer of 1 to 4 bytes.
    std::optional<std::uint32_t> unsignedInteger(std::size_t offset, std::size_t width,
                                                 Order order) const {
        const auto bytes = width == 0 || width > 4 ? std::nullopt : slice(offset, width);
        if (!bytes)
            return std::nullopt;
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < width; ++i) {
            const std::size_t index = order == Order::bigEndian ? i : width - 1 - i;
            value = (value << 8) | static_cast<unsigned char>((*bytes)[index]);
        }
        return value;
    }

    std::optional<std::uint32_t> byte(std::size_t offset) const {
        return unsignedInteger(offset, 1, Order::littleEndian);
    }

private:
    static constexpr std::size_t pieceLength = 4096;
    static constexpr std::size_t maximumReads = 16;

    struct Piece {
        std::size_t offset = 0;
        std::string bytes;
    };

    std::optional<std::string_view> readPiece(std::size_t offset, std::size_t length) const;

    std::string_view start_;
    Reader readMore_;
    // A deque keeps the bytes of earlier pieces in place while more are added.
    mutable std::deque<Piece> pieces_;
    mutable std::size_t reads_ = 0;
    mutable std::optional<std::size_t> fileEnd_;
};

} // namespace tidewell
