// Image headers come from any file in a project folder: no input may crash the readers,
// and a size, when there is one, is a real extent. Each input is read twice: whole, and as a
// file whose first bytes are at hand and whose other bytes are read where a header points.
#include "core/icons/ImageSize.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void checkSize(const std::optional<tidewell::ImageSize>& imageSize) {
    if (imageSize && !(std::isfinite(imageSize->width) && std::isfinite(imageSize->height) &&
                       imageSize->width > 0 && imageSize->height > 0))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    checkSize(tidewell::imageSizeFromHeader(tidewell::ByteView(bytes)));
    constexpr std::size_t startLength = 64;
    const auto readMore = [&](std::size_t offset, std::size_t length) {
        return offset <= size ? std::optional(std::string(bytes.substr(offset, length)))
                              : std::nullopt;
    };
    checkSize(
        tidewell::imageSizeFromHeader(tidewell::ByteView(bytes.substr(0, startLength), readMore)));
    return 0;
}
