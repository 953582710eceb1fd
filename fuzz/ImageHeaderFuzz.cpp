// Image headers come from any file in a project folder: no input may crash the readers,
// and a size, when there is one, is a real extent.
#include "core/icons/ImageSize.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto imageSize =
        tidewell::imageSizeFromHeader(std::string_view(reinterpret_cast<const char*>(data), size));
    if (imageSize && !(std::isfinite(imageSize->width) && std::isfinite(imageSize->height) &&
                       imageSize->width > 0 && imageSize->height > 0))
        std::abort();
    return 0;
}
