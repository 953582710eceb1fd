#include "core/items/ItemsJson.h"

#include "core/items/InternetDate.h"

#include <charconv>
#include <simdjson.h>

namespace tidewell::ItemsJson {

namespace {

using simdjson::dom::element;
using simdjson::dom::object;

constexpr std::string_view shortEscapedCharacters = "\"\\/\b\f\n\r\t";
constexpr std::string_view shortEscapeLetters = "\"\\/bfnrt";

// Escapes quote, backslash, slash and control characters; other UTF-8 is written as it is.
void appendQuoted(std::string& out, std::string_view text) {
    static constexpr char hexDigits[] = "0123456789abcdef";
    out += '"';
    std::size_t plainStart = 0;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const auto byte = static_cast<unsigned char>(text[index]);
        if (byte >= 0x20 && byte != '"' && byte != '\\' && byte != '/')
            continue;
        out.append(text, plainStart, index - plainStart);
        plainStart = index + 1;
        const auto shortForm = shortEscapedCharacters.find(text[index]);
        out += '\\';
        if (shortForm != std::string_view::npos) {
            out += shortEscapeLetters[shortForm];
        } else {
            out += "u00";
            out += hexDigits[byte >> 4];
            out += hexDigits[byte & 0x0F];
        }
    }
    out.append(text, plainStart, text.size() - plainStart);
    out += '"';
}

// Writes the members of one record, each on its own line; callers go in key order.
class MemberWriter {
public:
    explicit MemberWriter(std::string& out) : out_(out) {}

    void string(std::string_view key, std::string_view value) {
        beginMember(key);
        appendQuoted(out_, value);
    }

    void boolean(std::string_view key, bool value) {
        beginMember(key);
        out_ += value ? "true" : "false";
    }

    void integer(std::string_view key, std::int64_t value) {
        beginMember(key);
        char digits[24];
        const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
        out_.append(digits, end);
    }

private:
    void beginMember(std::string_view key) {
        if (!isFirst_)
            out_ += ",\n";
        isFirst_ = false;
        out_ += "    ";
        appendQuoted(out_, key);
        out_ += " : ";
    }

    std::string& out_;
    bool isFirst_ = true;
};

void appendItem(std::string& out, const NotchItem& item) {
    out += "  {\n";
    MemberWriter members(out);
    members.string("createdAt", InternetDate::format(item.createdAt));
    if (item.iconPath)
        members.string("iconPath", *item.iconPath);
    members.string("id", item.id.text());
    members.string("initials", item.initials);
    members.boolean("isFavorite", item.isFavorite);
    members.string("lastOpenedAt", InternetDate::format(item.lastOpenedAt));
    members.string("launchCommand", item.launchCommand);
    members.string("name", item.name);
    members.string("path", item.path);
    if (item.sortOrder)
        members.integer("sortOrder", *item.sortOrder);
    members.string("tintHex", item.tintHex);
    out += "\n  }";
}

bool readString(element value, std::string& into) {
    std::string_view text;
    if (value.get_string().get(text))
        return false;
    into.assign(text);
    return true;
}

bool readBoolean(element value, bool& into) {
    return !value.get_bool().get(into);
}

// Only JSON integers that fit 64 signed bits; 1.0 is a float and fails.
bool readInteger(element value, std::int64_t& into) {
    return !value.get_int64().get(into);
}

bool readUuid(element value, Uuid& into) {
    std::string_view text;
    if (value.get_string().get(text))
        return false;
    const auto uuid = Uuid::parse(text);
    if (uuid)
        into = *uuid;
    return uuid.has_value();
}

bool readDate(element value, Date& into) {
    std::string_view text;
    if (value.get_string().get(text))
        return false;
    const auto date = InternetDate::parse(text);
    if (date)
        into = *date;
    return date.has_value();
}

template <typename T, typename Reader>
bool readRequired(object record, std::string_view key, T& into, Reader read) {
    element value;
    return !record[key].get(value) && read(value, into);
}

// Absent and null both mean none.
template <typename T, typename Reader>
bool readOptional(object record, std::string_view key, std::optional<T>& into, Reader read) {
    element value;
    const auto error = record[key].get(value);
    if (error == simdjson::NO_SUCH_FIELD || (!error && value.is_null()))
        return true;
    if (error)
        return false;
    return read(value, into.emplace());
}

bool decodeItem(object record, NotchItem& item) {
    return readRequired(record, "id", item.id, readUuid) &&
           readRequired(record, "name", item.name, readString) &&
           readRequired(record, "path", item.path, readString) &&
           readOptional(record, "iconPath", item.iconPath, readString) &&
           readRequired(record, "initials", item.initials, readString) &&
           readRequired(record, "tintHex", item.tintHex, readString) &&
           readRequired(record, "launchCommand", item.launchCommand, readString) &&
           readRequired(record, "isFavorite", item.isFavorite, readBoolean) &&
           readRequired(record, "createdAt", item.createdAt, readDate) &&
           readRequired(record, "lastOpenedAt", item.lastOpenedAt, readDate) &&
           readOptional(record, "sortOrder", item.sortOrder, readInteger);
}

} // namespace

std::string encode(const std::vector<NotchItem>& items) {
    constexpr std::size_t typicalRecordSize = 512;
    std::string out;
    out.reserve((items.size() + 1) * typicalRecordSize);
    out += "[\n";
    for (std::size_t index = 0; index < items.size(); ++index) {
        if (index > 0)
            out += ",\n";
        appendItem(out, items[index]);
    }
    out += "\n]";
    return out;
}

std::optional<std::vector<NotchItem>> decode(std::string_view json) {
    simdjson::dom::parser parser;
    simdjson::dom::array records;
    if (parser.parse(json.data(), json.size()).get_array().get(records))
        return std::nullopt;
    std::vector<NotchItem> items;
    items.reserve(records.size());
    for (const element value : records) {
        object record;
        if (value.get_object().get(record) || !decodeItem(record, items.emplace_back()))
            return std::nullopt;
    }
    return items;
}

} // namespace tidewell::ItemsJson
