#include "core/icons/ImageSize.h"

#include "core/icons/ImageHeaderReaders.h"

#include <array>

namespace tidewell {

std::optional<ImageSize> imageSizeFromHeader(std::string_view bytes) {
    using namespace ImageHeaderReaders;
    // Formats with a distinctive signature first; ICO's signature is weak and SVG is text.
    constexpr std::array readers = {stbImageSize, jpegSize, webpSize, icnsSize,
                                    tiffSize,     icoSize,  svgSize};
    for (const auto reader : readers)
        if (const auto size = reader(bytes))
            return size;
    return std::nullopt;
}

} // namespace tidewell
