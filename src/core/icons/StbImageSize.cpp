#include "core/icons/ImageHeaderReaders.h"

#include <algorithm>
#include <climits>
#include <cmath>

#define STB_IMAGE_IMPLEMENTATION
#define STBI_ONLY_PNG
#define STBI_ONLY_GIF
#define STBI_ONLY_BMP
#define STBI_NO_STDIO
#define STBI_NO_LINEAR
#define STBI_NO_HDR
#include <stb_image.h>

namespace tidewell::ImageHeaderReaders {

std::optional<ImageSize> stbImageSize(const ByteView& view) {
    const std::string_view bytes = view.start();
    if (bytes.empty())
        return std::nullopt;
    const int length = static_cast<int>(std::min<std::size_t>(bytes.size(), INT_MAX));
    int width = 0;
    int height = 0;
    int components = 0;
    if (!stbi_info_from_memory(reinterpret_cast<const stbi_uc*>(bytes.data()), length, &width,
                               &height, &components))
        return std::nullopt;
    // A bitmap stored top row first declares its height negated.
    return positiveSize(width, std::abs(static_cast<double>(height)));
}

} // namespace tidewell::ImageHeaderReaders
