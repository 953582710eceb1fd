#pragma once

#include "core/icons/ByteView.h"

#include <optional>

namespace tidewell {

struct ImageSize {
    double width = 0;
    double height = 0;
};

// The size an image declares in its header, recognised by content, not by file name:
// PNG, GIF and BMP through stb_image; JPEG, WebP, ICO, ICNS, TIFF and SVG (width/height or
// viewBox) by readers of our own. Anything else, or a damaged header, has no size.
std::optional<ImageSize> imageSizeFromHeader(const ByteView& bytes);

// The same for a file: its first 64 KiB are read, and beyond them only the few small pieces
// that a header points to.
std::optional<ImageSize> imageSizeOfFile(const ByteView::Reader& read);

} // namespace tidewell
