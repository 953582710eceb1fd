#pragma once

#include "core/icons/ImageSize.h"

#include <cmath>
#include <optional>
#include <string_view>

namespace tidewell::ImageHeaderReaders {

// Each reader recognises its own format by content and has no size for anything else,
// including its own format when the header is damaged or cut short.
std::optional<ImageSize> stbImageSize(std::string_view bytes); // PNG, GIF, BMP
std::optional<ImageSize> jpegSize(std::string_view bytes);
std::optional<ImageSize> webpSize(std::string_view bytes);
std::optional<ImageSize> icoSize(std::string_view bytes);
std::optional<ImageSize> icnsSize(std::string_view bytes);
std::optional<ImageSize> tiffSize(std::string_view bytes);
std::optional<ImageSize> svgSize(std::string_view bytes);

// Only real extents count as a size.
inline std::optional<ImageSize> positiveSize(double width, double height) {
    if (!std::isfinite(width) || !std::isfinite(height) || width <= 0 || height <= 0)
        return std::nullopt;
    return ImageSize{width, height};
}

} // namespace tidewell::ImageHeaderReaders
