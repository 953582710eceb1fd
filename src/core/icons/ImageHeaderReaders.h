#pragma once

#include "core/icons/ByteView.h"
#include "core/icons/ImageSize.h"

#include <cmath>
#include <optional>
#include <string_view>

namespace tidewell::ImageHeaderReaders {

// Each reader recognises its own format by content and has no size for anything else,
// including its own format when the header is damaged or cut short. PNG, GIF, BMP and SVG
// are read from the bytes at the start; the others follow offsets wherever they point.
std::optional<ImageSize> stbImageSize(const ByteView& bytes); // PNG, GIF, BMP
std::optional<ImageSize> jpegSize(const ByteView& bytes);
std::optional<ImageSize> webpSize(const ByteView& bytes);
std::optional<ImageSize> icoSize(const ByteView& bytes);
std::optional<ImageSize> icnsSize(const ByteView& bytes);
std::optional<ImageSize> tiffSize(const ByteView& bytes);
std::optional<ImageSize> svgSize(const ByteView& bytes);

// Only real extents count as a size.
inline std::optional<ImageSize> positiveSize(double width, double height) {
    if (!std::isfinite(width) || !std::isfinite(height) || width <= 0 || height <= 0)
        return std::nullopt;
    return ImageSize{width, height};
}

} // namespace tidewell::ImageHeaderReaders
