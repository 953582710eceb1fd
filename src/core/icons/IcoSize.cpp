#include "core/icons/ByteView.h"
#include "core/icons/ImageHeaderReaders.h"

namespace tidewell::ImageHeaderReaders {
namespace {

constexpr auto little = ByteView::Order::littleEndian;
constexpr std::size_t headerLength = 6;
constexpr std::size_t entryLength = 16;

// An extent byte of 0 stands for 256.
double extent(std::uint32_t stored) {
    return stored == 0 ? 256 : stored;
}

// The signature is only four bytes, so every directory entry must look like one too: a
// plausible bit depth and image data that lies after the directory.
bool isPlausibleEntry(const ByteView& bytes, std::size_t entry, std::size_t directoryEnd) {
    const auto planes = bytes.unsignedInteger(entry + 4, 2, little);
    const auto bitCount = bytes.unsignedInteger(entry + 6, 2, little);
    const auto dataLength = bytes.unsignedInteger(entry + 8, 4, little);
    const auto dataOffset = bytes.unsignedInteger(entry + 12, 4, little);
    if (!planes || !bitCount || !dataLength || !dataOffset)
        return false;
    const bool knownBitCount = *bitCount == 0 || *bitCount == 1 || *bitCount == 4 ||
                               *bitCount == 8 || *bitCount == 16 || *bitCount == 24 ||
                               *bitCount == 32;
    return *planes <= 1 && knownBitCount && *dataLength > 0 && *dataOffset >= directoryEnd;
}

} // namespace

// The largest image the icon directory lists.
std::optional<ImageSize> icoSize(const ByteView& bytes) {
    const auto reserved = bytes.unsignedInteger(0, 2, little);
    const auto type = bytes.unsignedInteger(2, 2, little);
    const auto count = bytes.unsignedInteger(4, 2, little);
    if (reserved != 0u || type != 1u || !count || *count == 0)
        return std::nullopt;
    const std::size_t directoryEnd = headerLength + *count * entryLength;
    if (!bytes.contains(0, directoryEnd))
        return std::nullopt;

    std::optional<ImageSize> largest;
    for (std::size_t entry = headerLength; entry < directoryEnd; entry += entryLength) {
        if (!isPlausibleEntry(bytes, entry, directoryEnd))
            return std::nullopt;
        const ImageSize size{extent(*bytes.byte(entry)), extent(*bytes.byte(entry + 1))};
        if (!largest || size.width * size.height > largest->width * largest->height)
            largest = size;
    }
    return largest;
}

} // namespace tidewell::ImageHeaderReaders
