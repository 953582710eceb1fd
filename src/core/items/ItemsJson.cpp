#include "core/items/ItemsJson.h"

#include "core/items/InternetDate.h"
#include "core/items/JsonReader.h"

#include <array>

namespace tidewell::ItemsJson {

namespace {

// By byte: 0 when it is written as it is, else the letter of its short escape, or 'u'.
constexpr std::array<char, 256> escapes = [] {
    std::array<char, 256> letters{};
    for (int byte = 0; byte < 0x20; ++byte)
        letters[byte] = 'u';
    letters['"'] = '"';
    letters['\\'] = '\\';
    letters['/'] = '/';
    letters['\b'] = 'b';
    letters['\f'] = 'f';
    letters['\n'] = 'n';
    letters['\r'] = 'r';
    letters['\t'] = 't';
    return letters;
}();

// Escapes quote, backslash, slash and control characters; other UTF-8 is written as it is.
void appendQuoted(std::string& out, std::string_view text) {
    static constexpr char hexDigits[] = "0123456789abcdef";
    out += '"';
    std::size_t plainStart = 0;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const auto byte = static_cast<unsigned char>(text[index]);
        const char letter = escapes[byte];
        if (letter == 0)
            continue;
        out.append(text, plainStart, index - plainStart);
        plainStart = index + 1;
        out += '\\';
        if (letter != 'u') {
            out += letter;
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
        out_ += std::to_string(value);
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
    char created[InternetDate::formattedLength];
    char opened[InternetDate::formattedLength];
    char id[Uuid::textLength];
    InternetDate::writeFormatted(item.createdAt, created);
    InternetDate::writeFormatted(item.lastOpenedAt, opened);
    item.id.writeText(id);
    out += "  {\n";
    MemberWriter members(out);
    members.string("createdAt", {created, sizeof created});
    if (item.iconPath)
        members.string("iconPath", *item.iconPath);
    members.string("id", {id, sizeof id});
    members.string("initials", item.initials);
    members.boolean("isFavorite", item.isFavorite);
    members.string("lastOpenedAt", {opened, sizeof opened});
    members.string("launchCommand", item.launchCommand);
    members.string("name", item.name);
    members.string("path", item.path);
    if (item.sortOrder)
        members.integer("sortOrder", *item.sortOrder);
    members.string("tintHex", item.tintHex);
    out += "\n  }";
}

// The members of a record, each read the first time its key appears; the required ones
// must all be there.
enum Member : unsigned {
    idMember = 1 << 0,
    nameMember = 1 << 1,
    pathMember = 1 << 2,
    iconPathMember = 1 << 3,
    initialsMember = 1 << 4,
    tintHexMember = 1 << 5,
    launchCommandMember = 1 << 6,
    isFavoriteMember = 1 << 7,
    createdAtMember = 1 << 8,
    lastOpenedAtMember = 1 << 9,
    sortOrderMember = 1 << 10,
};
constexpr unsigned requiredMembers = idMember | nameMember | pathMember | initialsMember |
                                     tintHexMember | launchCommandMember | isFavoriteMember |
                                     createdAtMember | lastOpenedAtMember;

constexpr std::pair<std::string_view, Member> memberKeys[] = {
    {"id", idMember},
    {"name", nameMember},
    {"path", pathMember},
    {"iconPath", iconPathMember},
    {"initials", initialsMember},
    {"tintHex", tintHexMember},
    {"launchCommand", launchCommandMember},
    {"isFavorite", isFavoriteMember},
    {"createdAt", createdAtMember},
    {"lastOpenedAt", lastOpenedAtMember},
    {"sortOrder", sortOrderMember},
};

unsigned memberOf(std::string_view key) {
    for (const auto& [name, member] : memberKeys)
        if (name == key)
            return member;
    return 0;
}

bool readUuid(JsonReader& reader, std::string& text, Uuid& into) {
    const auto uuid = reader.readString(text) ? Uuid::parse(text) : std::nullopt;
    if (uuid)
        into = *uuid;
    return uuid.has_value();
}

bool readDate(JsonReader& reader, std::string& text, Date& into) {
    const auto date = reader.readString(text) ? InternetDate::parse(text) : std::nullopt;
    if (date)
        into = *date;
    return date.has_value();
}

// Absent and null both mean none.
template <typename T, typename Reader>
bool readOptional(JsonReader& reader, std::optional<T>& into, Reader read) {
    return reader.consumeNull() || read(into.emplace());
}

bool readMember(JsonReader& reader, unsigned member, std::string& text, NotchItem& item) {
    switch (member) {
    case idMember:
        return readUuid(reader, text, item.id);
    case nameMember:
        return reader.readString(item.name);
    case pathMember:
        return reader.readString(item.path);
    case iconPathMember:
        return readOptional(reader, item.iconPath,
                            [&](std::string& into) { return reader.readString(into); });
    case initialsMember:
        return reader.readString(item.initials);
    case tintHexMember:
        return reader.readString(item.tintHex);
    case launchCommandMember:
        return reader.readString(item.launchCommand);
    case isFavoriteMember:
        return reader.readBoolean(item.isFavorite);
    case createdAtMember:
        return readDate(reader, text, item.createdAt);
    case lastOpenedAtMember:
        return readDate(reader, text, item.lastOpenedAt);
    case sortOrderMember:
        return readOptional(reader, item.sortOrder,
                            [&](std::int64_t& into) { return reader.readInteger(into); });
    default:
        return reader.skipValue();
    }
}

// Unknown keys are passed over, as is every key after its first appearance.
bool readItem(JsonReader& reader, std::string& text, NotchItem& item) {
    if (!reader.consume('{'))
        return false;
    unsigned seen = 0;
    if (!reader.consume('}')) {
        do {
            if (!reader.readString(text) || !reader.consume(':'))
                return false;
            const unsigned member = memberOf(text) & ~seen;
            seen |= member;
            if (!readMember(reader, member, text, item))
                return false;
        } while (reader.consume(','));
        if (!reader.consume('}'))
            return false;
    }
    return (seen & requiredMembers) == requiredMembers;
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
    // An encoded record takes a few hundred bytes.
    constexpr std::size_t smallestTypicalRecord = 256;
    // A byte order mark, as some editors write, is no part of the text.
    if (json.starts_with("\xEF\xBB\xBF"))
        json.remove_prefix(3);
    JsonReader reader(json);
    std::vector<NotchItem> items;
    items.reserve(json.size() / smallestTypicalRecord);
    std::string text;
    if (!reader.consume('['))
        return std::nullopt;
    if (!reader.consume(']')) {
        do {
            if (!readItem(reader, text, items.emplace_back()))
                return std::nullopt;
        } while (reader.consume(','));
        if (!reader.consume(']'))
            return std::nullopt;
    }
    if (!reader.isAtEnd())
        return std::nullopt;
    return items;
}

} // namespace tidewell::ItemsJson
