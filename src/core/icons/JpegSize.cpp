#include "core/icons/ByteView.h"
#include "core/icons/ImageHeaderReaders.h"

namespace tidewell::ImageHeaderReaders {
namespace {

constexpr auto big = ByteView::Order::bigEndian;
constexpr std::uint32_t startOfScan = 0xDA;
constexpr std::uint32_t endOfImage = 0xD9;

bool hasNoLength(std::uint32_t marker) {
    return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7);
}

// SOF0 to SOF15, apart from the three markers that share the range: DHT, JPG and DAC.
bool isStartOfFrame(std::uint32_t marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

} // namespace

// The frame header's extents. The segments before it (tables, metadata) are skipped by
// their lengths without being read: only the frame header is trusted to hold a size.
std::optional<ImageSize> jpegSize(const ByteView& bytes) {
    if (!bytes.hasTag(0, "\xFF\xD8"))
        return std::nullopt;
    std::size_t offset = 2;
    while (bytes.byte(offset) == 0xFFu) {
        while (bytes.byte(offset) == 0xFFu) // fill bytes may pad any marker
            ++offset;
        const auto marker = bytes.byte(offset++);
        if (!marker || hasNoLength(*marker))
            continue;
        // Image data follows a scan; a frame header would have come before.
        if (*marker == startOfScan || *marker == endOfImage)
            return std::nullopt;
        const auto length = bytes.unsignedInteger(offset, 2, big);
        if (!length || *length < 2)
            return std::nullopt;
        if (isStartOfFrame(*marker)) {
            const auto height = bytes.unsignedInteger(offset + 3, 2, big);
            const auto width = bytes.unsignedInteger(offset + 5, 2, big);
            if (!width || !height)
                return std::nullopt;
            return positiveSize(*width, *height);
        }
        offset += *length;
    }
    return std::nullopt;
}

} // namespace tidewell::ImageHeaderReaders
