#include "core/drag/ShelfItemMove.h"

#include "core/items/JsonReader.h"

namespace tidewell {

std::string ShelfItemMove::encoded() const {
    return R"({"id":")" + id.text() + R"("})";
}

// Exactly one member, "id", holding a UUID.
std::optional<ShelfItemMove> ShelfItemMove::decoded(std::string_view bytes) {
    JsonReader reader(bytes);
    std::string key, text;
    if (!reader.consume('{') || !reader.readString(key) || key != "id" || !reader.consume(':') ||
        !reader.readString(text) || !reader.consume('}') || !reader.isAtEnd())
        return std::nullopt;
    const auto id = Uuid::parse(text);
    if (!id)
        return std::nullopt;
    return ShelfItemMove{*id};
}

} // namespace tidewell
