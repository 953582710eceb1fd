#include "core/icons/ImageSize.h"

#include "core/icons/ImageHeaderReaders.h"

#include <array>

namespace tidewell {

std::optional<ImageSize> imageSizeFromHeader(const ByteView& bytes) {
    using namespace ImageHeaderReaders;
    // Formats with a distinctive signature first; ICO's signature is weak and SVG is text.
    constexpr std::array readers = {stbImageSize, jpegSize, webpSize, icnsSize,
                                    tiffSize,     icoSize,  svgSize};
    for (const auto reader : readers)
        if (const auto size = reader(bytes))
            return size;
    return std::nullopt;
}

std::optional<ImageSize> imageSizeOfFile(const ByteView::Reader& read) {
    constexpr std::size_t startLength = 64 * 1024;
    const auto start = read(0, startLength);
    if (!start)
        return std::nullopt;
    // A shorter start is the whole file.
    if (start->size() < startLength)
        return imageSizeFromHeader(ByteView(*start));
    return imageSizeFromHeader(ByteView(*start, read));
}

} // namespace tidewell
