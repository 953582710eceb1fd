#include "core/drag/ShelfItemMove.h"

#include <simdjson.h>

namespace tidewell {

std::string ShelfItemMove::encoded() const {
    return R"({"id":")" + id.text() + R"("})";
}

std::optional<ShelfItemMove> ShelfItemMove::decoded(std::string_view bytes) {
    simdjson::dom::parser parser;
    simdjson::dom::object object;
    std::string_view text;
    if (parser.parse(bytes.data(), bytes.size()).get_object().get(object) || object.size() != 1 ||
        object["id"].get_string().get(text))
        return std::nullopt;
    const auto id = Uuid::parse(text);
    if (!id)
        return std::nullopt;
    return ShelfItemMove{*id};
}

} // namespace tidewell
