#pragma once

#include <optional>
#include <string_view>

namespace tidewell {

struct ImageSize {
    double width = 0;
    double height = 0;
};

// The size an image declares in its header, recognised by content, not by file name:
// PNG, GIF and BMP through stb_image; JPEG, WebP, ICO, ICNS, TIFF and SVG (width/height or
// viewBox) by readers of our own. Anything else, or a damaged header, has no size.
std::optional<ImageSize> imageSizeFromHeader(std::string_view bytes);

} // namespace tidewell
