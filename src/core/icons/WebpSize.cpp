#include "core/icons/ByteView.h"
#include "core/icons/ImageHeaderReaders.h"

namespace tidewell::ImageHeaderReaders {
namespace {

constexpr auto little = ByteView::Order::littleEndian;
// The first chunk's payload follows "RIFF", the file size, "WEBP", the chunk tag and size.
constexpr std::size_t payload = 20;

// Lossy: a key frame's tag (3 bytes), the start code, then two 14-bit extents.
std::optional<ImageSize> lossySize(const ByteView& bytes) {
    const auto frameTag = bytes.byte(payload);
    const bool isKeyFrame = frameTag && (*frameTag & 1) == 0;
    if (!isKeyFrame || !bytes.hasTag(payload + 3, "\x9d\x01\x2a"))
        return std::nullopt;
    const auto width = bytes.unsignedInteger(payload + 6, 2, little);
    const auto height = bytes.unsignedInteger(payload + 8, 2, little);
    if (!width || !height)
        return std::nullopt;
    return positiveSize(*width & 0x3fff, *height & 0x3fff);
}

// Lossless: a signature byte, then width - 1 and height - 1 in 14 bits each.
std::optional<ImageSize> losslessSize(const ByteView& bytes) {
    const auto bits = bytes.unsignedInteger(payload + 1, 4, little);
    if (!bytes.hasTag(payload, "\x2f") || !bits)
        return std::nullopt;
    return positiveSize((*bits & 0x3fff) + 1, ((*bits >> 14) & 0x3fff) + 1);
}

// Extended: flags and reserved bytes, then canvas width - 1 and height - 1 in 24 bits each.
std::optional<ImageSize> extendedSize(const ByteView& bytes) {
    const auto width = bytes.unsignedInteger(payload + 4, 3, little);
    const auto height = bytes.unsignedInteger(payload + 7, 3, little);
    if (!width || !height)
        return std::nullopt;
    return positiveSize(*width + 1.0, *height + 1.0);
}

} // namespace

std::optional<ImageSize> webpSize(const ByteView& bytes) {
    if (!bytes.hasTag(0, "RIFF") || !bytes.hasTag(8, "WEBP"))
        return std::nullopt;
    if (bytes.hasTag(12, "VP8 "))
        return lossySize(bytes);
    if (bytes.hasTag(12, "VP8L"))
        return losslessSize(bytes);
    if (bytes.hasTag(12, "VP8X"))
        return extendedSize(bytes);
    return std::nullopt;
}

} // namespace tidewell::ImageHeaderReaders
