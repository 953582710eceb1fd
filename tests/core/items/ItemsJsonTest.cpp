#include "core/items/ItemsJson.h"

#include <gtest/gtest.h>
#include <map>

using namespace std::chrono;
using namespace tidewell;

namespace {

const Date march4 = Date(sys_days(2025y / March / 4) + 18h + 7min + 41s);

NotchItem fullItem() {
    NotchItem item;
    item.id = *Uuid::parse("3F2504E0-4F89-11D3-9A0C-0305E82C3301");
    item.name = "myProject";
    item.path = "/home/a/myProject";
    item.iconPath = "/home/a/.local/share/Tidewell/Icons/3F25.png";
    item.initials = "MP";
    item.tintHex = "#5E7CE2";
    item.isFavorite = true;
    item.createdAt = march4;
    item.lastOpenedAt = march4 + 3600s;
    item.sortOrder = 0;
    return item;
}

NotchItem recentItem() {
    NotchItem item = fullItem();
    item.iconPath.reset();
    item.sortOrder.reset();
    item.isFavorite = false;
    item.launchCommand = "npm run dev";
    return item;
}

// Members of one valid record as raw JSON values, to be spoiled one at a time.
using Members = std::map<std::string, std::string>;

Members validMembers() {
    return {
        {"id", R"("3F2504E0-4F89-11D3-9A0C-0305E82C3301")"},
        {"name", R"("web")"},
        {"path", R"("\/srv\/web")"},
        {"initials", R"("WE")"},
        {"tintHex", R"("#A45CC2")"},
        {"launchCommand", R"("")"},
        {"isFavorite", "false"},
        {"createdAt", R"("2025-03-04T18:07:41Z")"},
        {"lastOpenedAt", R"("2025-03-04T18:07:41Z")"},
    };
}

std::string objectText(const Members& members) {
    std::string text = "{";
    for (const auto& [key, value] : members)
        text += (text.size() > 1 ? "," : "") + ("\"" + key + "\":" + value);
    return text + "}";
}

std::string arrayText(const Members& members) {
    return "[" + objectText(validMembers()) + "," + objectText(members) + "]";
}

Members with(std::string key, std::string value) {
    Members members = validMembers();
    members[key] = std::move(value);
    return members;
}

Members without(const std::string& key) {
    Members members = validMembers();
    members.erase(key);
    return members;
}

NotchItem decodeOne(const Members& members) {
    const auto items = ItemsJson::decode("[" + objectText(members) + "]");
    EXPECT_TRUE(items && items->size() == 1) << objectText(members);
    return items && !items->empty() ? items->front() : NotchItem();
}

} // namespace

TEST(ItemsJson, EncodesTheExactLayout) {
    const std::string expected = R"([
  {
    "createdAt" : "2025-03-04T18:07:41Z",
    "iconPath" : "\/home\/a\/.local\/share\/Tidewell\/Icons\/3F25.png",
    "id" : "3F2504E0-4F89-11D3-9A0C-0305E82C3301",
    "initials" : "MP",
    "isFavorite" : true,
    "lastOpenedAt" : "2025-03-04T19:07:41Z",
    "launchCommand" : "",
    "name" : "myProject",
    "path" : "\/home\/a\/myProject",
    "sortOrder" : 0,
    "tintHex" : "#5E7CE2"
  },
  {
    "createdAt" : "2025-03-04T18:07:41Z",
    "id" : "3F2504E0-4F89-11D3-9A0C-0305E82C3301",
    "initials" : "MP",
    "isFavorite" : false,
    "lastOpenedAt" : "2025-03-04T19:07:41Z",
    "launchCommand" : "npm run dev",
    "name" : "myProject",
    "path" : "\/home\/a\/myProject",
    "tintHex" : "#5E7CE2"
  }
])";
    EXPECT_EQ(ItemsJson::encode({fullItem(), recentItem()}), expected);
    EXPECT_EQ(ItemsJson::encode({}), "[\n\n]");
}

TEST(ItemsJson, EscapesQuotesSlashesAndControlCharacters) {
    NotchItem item = recentItem();
    item.name = "a\"b\\c/d\b\f\n\r\t\x01\x1f\x7f\u00e9\U0001F680";
    item.name += '\0';
    const std::string json = ItemsJson::encode({item});
    EXPECT_NE(json.find(R"("name" : "a\"b\\c\/d\b\f\n\r\t\u0001\u001f)"
                        "\x7f\u00e9\U0001F680\\u0000\""),
              std::string::npos)
        << json;
}

TEST(ItemsJson, DecodesWhatItEncodes) {
    NotchItem negative = fullItem();
    negative.id = Uuid::random();
    negative.sortOrder = std::numeric_limits<std::int64_t>::min();
    negative.name = "tab\there \"quoted\" \\ \x02 \u00e9\u0301";
    NotchItem largest = recentItem();
    largest.sortOrder = std::numeric_limits<std::int64_t>::max();
    const std::vector<NotchItem> items = {fullItem(), recentItem(), negative, largest};
    EXPECT_EQ(ItemsJson::decode(ItemsJson::encode(items)), items);
    EXPECT_EQ(ItemsJson::decode(ItemsJson::encode({})), std::vector<NotchItem>());
}

TEST(ItemsJson, DecodesOptionalsAsNoneWhenAbsentOrNull) {
    for (const Members& members :
         {validMembers(), with("iconPath", "null"), with("sortOrder", "null")}) {
        const NotchItem item = decodeOne(members);
        EXPECT_FALSE(item.iconPath);
        EXPECT_FALSE(item.sortOrder);
    }
    EXPECT_EQ(decodeOne(with("sortOrder", "-3")).sortOrder, -3);
    EXPECT_EQ(decodeOne(with("iconPath", R"("\/i.png")")).iconPath, "/i.png");
}

TEST(ItemsJson, AcceptsAnyLayoutLowerCaseIdsOffsetsAndUnknownKeys) {
    Members members = with("id", R"("3f2504e0-4f89-11d3-9a0c-0305e82c3301")");
    members["createdAt"] = R"("2025-03-04T20:07:41+02:00")";
    members["colour"] = R"({"nested": [1, 2.5, null]})";
    members["name"] = R"("caf\u00e9 \"x\" \ud83d\ude80\n")";
    const NotchItem item = decodeOne(members);
    EXPECT_EQ(item.id.text(), "3F2504E0-4F89-11D3-9A0C-0305E82C3301");
    EXPECT_EQ(item.createdAt, march4);
    EXPECT_EQ(item.name, "caf\u00e9 \"x\" \U0001F680\n");
    EXPECT_EQ(item.path, "/srv/web");
    EXPECT_FALSE(item.isFavorite);
    EXPECT_EQ(ItemsJson::decode(" [ ] \n"), std::vector<NotchItem>());
}

TEST(ItemsJson, AnyBadRecordFailsTheWholeArray) {
    const std::vector<Members> spoiled = {
        without("id"),
        without("name"),
        without("launchCommand"),
        without("isFavorite"),
        without("lastOpenedAt"),
        with("name", "null"),
        with("createdAt", "null"),
        with("path", "42"),
        with("isFavorite", R"("true")"),
        with("isFavorite", "1"),
        with("initials", "[]"),
        with("iconPath", "false"),
        with("sortOrder", R"("1")"),
        with("sortOrder", "1.5"),
        with("sortOrder", "1.0"),
        with("sortOrder", "1e2"),
        with("sortOrder", "9223372036854775808"),
        with("createdAt", R"("2025-03-04T18:07:41.250Z")"),
        with("lastOpenedAt", R"("2025-03-04")"),
        with("createdAt", R"("2025-02-30T18:07:41Z")"),
        with("id", R"("3F2504E0-4F89-11D3-9A0C-0305E82C330")"),
        with("id", R"("{3F2504E0-4F89-11D3-9A0C-0305E82C3301}")"),
    };
    for (const Members& members : spoiled)
        EXPECT_FALSE(ItemsJson::decode(arrayText(members))) << arrayText(members);
    EXPECT_TRUE(ItemsJson::decode(arrayText(validMembers())));
}

TEST(ItemsJson, RejectsOtherDocuments) {
    const std::string record = objectText(validMembers());
    for (const std::string& json : {
             record,                // an object, not an array
             "[" + record + ",42]", // an element that is no object
             "[" + record + ",null]",
             "[" + record,          // cut short
             "[" + record + "] []", // trailing content
             "[" + record + ",]",   // trailing comma
             std::string(""), std::string("null"),
             std::string("[\"\xff\"]"), // invalid UTF-8
         })
        EXPECT_FALSE(ItemsJson::decode(json)) << json;
    Members invalidUtf8 = with("name", "\"bad \xc3\x28 byte\"");
    EXPECT_FALSE(ItemsJson::decode(arrayText(invalidUtf8)));
}
