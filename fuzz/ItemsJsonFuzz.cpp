// Decodes arbitrary bytes as an items file. Whatever decodes must survive being written
// and read again unchanged, since every save rewrites the file from decoded records.
#include "core/items/ItemsJson.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto items = tidewell::ItemsJson::decode(bytes);
    if (!items)
        return 0;
    const auto reread = tidewell::ItemsJson::decode(tidewell::ItemsJson::encode(*items));
    if (reread != items)
        std::abort();
    return 0;
}
