#include "core/items/ItemsJson.h"

#include "core/items/InternetDate.h"
#include "core/items/JsonOutput.h"
#include "core/items/JsonReader.h"

#include <charconv>
#include <iterator>

namespace tidewell::ItemsJson {

namespace {

// Writes the members of one record, each on its own line; callers go in key order.
template <typename Output> class MemberWriter {
public:
    explicit MemberWriter(Output& out) : out_(out) {}

    void string(std::string_view key, std::string_view value) {
        beginMember(key);
        out_.putQuoted(value);
    }

    // Dates and ids hold no character that needs an escape; they are written only where
    // the text goes, not where it is measured.
    void date(std::string_view key, Date value) {
        plain(key, InternetDate::formattedLength,
              [value](char* at) { InternetDate::writeFormatted(value, at); });
    }

    void id(std::string_view key, const Uuid& value) {
        plain(key, Uuid::textLength, [&value](char* at) { value.writeText(at); });
    }

    void boolean(std::string_view key, bool value) {
        beginMember(key);
        out_.put(value ? "true" : "false");
    }

    void integer(std::string_view key, std::int64_t value) {
        beginMember(key);
        char digits[24];
        out_.put({digits, std::to_chars(digits, std::end(digits), value).ptr});
    }

private:
    template <typename Write> void plain(std::string_view key, std::size_t length, Write write) {
        beginMember(key);
        out_.put('"');
        out_.putWritten(length, write);
        out_.put('"');
    }

    // Keys are our own names, which need no escapes.
    void beginMember(std::string_view key) {
        out_.put(isFirst_ ? "    \"" : ",\n    \"");
        isFirst_ = false;
        out_.put(key);
        out_.put("\" : ");
    }

    Output& out_;
    bool isFirst_ = true;
};

template <typename Output> void putItem(Output& out, const NotchItem& item) {
    out.put("  {\n");
    MemberWriter members(out);
    members.date("createdAt", item.createdAt);
    if (item.iconPath)
        members.string("iconPath", *item.iconPath);
    members.id("id", item.id);
    members.string("initials", item.initials);
    members.boolean("isFavorite", item.isFavorite);
    members.date("lastOpenedAt", item.lastOpenedAt);
    members.string("launchCommand", item.launchCommand);
    members.string("name", item.name);
    members.string("path", item.path);
    if (item.sortOrder)
        members.integer("sortOrder", *item.sortOrder);
    members.string("tintHex", item.tintHex);
    out.put("\n  }");
}

template <typename Output> void putItems(Output& out, const std::vector<NotchItem>& items) {
    out.put("[\n");
    for (std::size_t index = 0; index < items.size(); ++index) {
        if (index > 0)
            out.put(",\n");
        putItem(out, items[index]);
    }
    out.put("\n]");
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

bool readUuid(JsonReader& reader, Uuid& into) {
    std::string_view text;
    const auto uuid = reader.readText(text) ? Uuid::parse(text) : std::nullopt;
    if (uuid)
        into = *uuid;
    return uuid.has_value();
}

bool readDate(JsonReader& reader, Date& into) {
    std::string_view text;
    const auto date = reader.readText(text) ? InternetDate::parse(text) : std::nullopt;
    if (date)
        into = *date;
    return date.has_value();
}

// Absent and null both mean none.
template <typename T, typename Reader>
bool readOptional(JsonReader& reader, std::optional<T>& into, Reader read) {
    return reader.consumeNull() || read(into.emplace());
}

bool readMember(JsonReader& reader, unsigned member, NotchItem& item) {
    switch (member) {
    case idMember:
        return readUuid(reader, item.id);
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
        return readDate(reader, item.createdAt);
    case lastOpenedAtMember:
        return readDate(reader, item.lastOpenedAt);
    case sortOrderMember:
        return readOptional(reader, item.sortOrder,
                            [&](std::int64_t& into) { return reader.readInteger(into); });
    default:
        return reader.skipValue();
    }
}

// Unknown keys are passed over, as is every key after its first appearance.
bool readItem(JsonReader& reader, NotchItem& item) {
    if (!reader.consume('{'))
        return false;
    unsigned seen = 0;
    if (!reader.consume('}')) {
        do {
            std::string_view key;
            if (!reader.readText(key) || !reader.consume(':'))
                return false;
            const unsigned member = memberOf(key) & ~seen;
            seen |= member;
            if (!readMember(reader, member, item))
                return false;
        } while (reader.consume(','));
        if (!reader.consume('}'))
            return false;
    }
    return (seen & requiredMembers) == requiredMembers;
}

} // namespace

std::string encode(const std::vector<NotchItem>& items) {
    std::string out;
    encode(items, out);
    return out;
}

void encode(const std::vector<NotchItem>& items, std::string& into) {
    JsonOutput::Counter counter;
    putItems(counter, items);
    into.resize(counter.size());
    JsonOutput::Buffer buffer(into.data());
    putItems(buffer, items);
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
    if (!reader.consume('['))
        return std::nullopt;
    if (!reader.consume(']')) {
        do {
            if (!readItem(reader, items.emplace_back()))
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
