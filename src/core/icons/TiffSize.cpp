#include "core/icons/ByteView.h"
#include "core/icons/ImageHeaderReaders.h"

namespace tidewell::ImageHeaderReaders {
namespace {

constexpr std::uint32_t imageWidthTag = 256;
constexpr std::uint32_t imageLengthTag = 257;
constexpr std::uint32_t shortType = 3;
constexpr std::uint32_t longType = 4;
constexpr std::size_t entryLength = 12;

// A SHORT sits in the first two bytes of the value field, a LONG fills it.
std::optional<std::uint32_t> integerValue(const ByteView& bytes, std::size_t entry,
                                          ByteView::Order order) {
    const auto type = bytes.unsignedInteger(entry + 2, 2, order);
    const auto count = bytes.unsignedInteger(entry + 4, 4, order);
    if (!count || *count == 0)
        return std::nullopt;
    if (type == shortType)
        return bytes.unsignedInteger(entry + 8, 2, order);
    if (type == longType)
        return bytes.unsignedInteger(entry + 8, 4, order);
    return std::nullopt;
}

} // namespace

// ImageWidth and ImageLength of the first image file directory, in either byte order.
std::optional<ImageSize> tiffSize(const ByteView& bytes) {
    ByteView::Order order;
    if (bytes.hasTag(0, std::string_view("II*\0", 4)))
        order = ByteView::Order::littleEndian;
    else if (bytes.hasTag(0, std::string_view("MM\0*", 4)))
        order = ByteView::Order::bigEndian;
    else
        return std::nullopt;

    const auto directory = bytes.unsignedInteger(4, 4, order);
    const auto count = directory ? bytes.unsignedInteger(*directory, 2, order) : std::nullopt;
    if (!count)
        return std::nullopt;
    std::optional<std::uint32_t> width;
    std::optional<std::uint32_t> height;
    for (std::uint32_t index = 0; index < *count; ++index) {
        const std::size_t entry = std::size_t{*directory} + 2 + index * entryLength;
        const auto tag = bytes.unsignedInteger(entry, 2, order);
        if (!tag)
            break;
        if (*tag == imageWidthTag)
            width = integerValue(bytes, entry, order);
        else if (*tag == imageLengthTag)
            height = integerValue(bytes, entry, order);
    }
    // A missing extent counts as none.
    return positiveSize(width.value_or(0), height.value_or(0));
}

} // namespace tidewell::ImageHeaderReaders
