#include "core/items/ItemsJson.h"

#include <gtest/gtest.h>
#include <map>

namespace tidewell {
namespace {

using namespace std::chrono;

const Date march4 = Date(sys_days(2025y / March / 4) + 18h + 7min + 41s);

// One valid record with a member replaced by raw JSON text, or left out when it has none.
std::string recordWith(const std::string& key = "", std::optional<std::string> value = {}) {
    std::map<std::string, std::string> members = {
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
    if (value)
        members[key] = *value;
    else
        members.erase(key);
    std::string text = "{";
    for (const auto& [name, json] : members)
        text += (text.size() > 1 ? "," : "") + ("\"" + name + "\":" + json);
    return text + "}";
}

const std::string validRecord = recordWith();

NotchItem decodeOne(const std::string& record) {
    const auto items = ItemsJson::decode("[" + record + "]");
    EXPECT_TRUE(items && items->size() == 1) << record;
    return items && !items->empty() ? items->front() : NotchItem();
}

TEST(ItemsJson, DecodesAnyLayoutLowerCaseIdsOffsetsUnknownKeysAndNullOptionals) {
    const NotchItem plain = decodeOne(validRecord);
    EXPECT_FALSE(plain.iconPath || plain.sortOrder);
    for (const char* key : {"iconPath", "sortOrder"})
        EXPECT_EQ(decodeOne(recordWith(key, "null")), plain) << key;
    EXPECT_EQ(decodeOne(recordWith("sortOrder", "-39")).sortOrder, -39);
    EXPECT_EQ(decodeOne(recordWith("iconPath", R"("\/i.png")")).iconPath, "/i.png");
    EXPECT_EQ(decodeOne(recordWith("id", R"("3f2504e0-4f89-11d3-9a0c-0305e82c3301")")).id,
              *Uuid::parse("3F2504E0-4F89-11D3-9A0C-0305E82C3301"));
    EXPECT_EQ(decodeOne(recordWith("createdAt", R"("2025-03-04T20:07:41+02:00")")).createdAt,
              march4);
    EXPECT_TRUE(ItemsJson::decode(
        "[" + recordWith("colour", std::string(1000, '[') + std::string(1000, ']')) + "]"));
    EXPECT_EQ(decodeOne(recordWith("colour", R"({"nested": [1, 2.5e+2, 1E5, null]})")).path,
              "/srv/web");
    EXPECT_EQ(ItemsJson::decode("\xEF\xBB\xBF[" + validRecord + "]")->size(), 1u);
    EXPECT_EQ(
        decodeOne(
            recordWith("name", R"("é caf\u00e9e \"x\" \ud83d\ude80\ud800\udc00\ue000\u0080\n")"))
            .name,
        "\u00e9 caf\u00e9e \"x\" \U0001F680\U00010000\ue000\u0080\n");
}

TEST(ItemsJson, AnyBadRecordOrDocumentFailsTheWholeDecode) {
    const std::string spoiledRecords[] = {
        recordWith("id", std::nullopt),
        recordWith("launchCommand", std::nullopt),
        recordWith("name", "null"),
        recordWith("name", ""),
        recordWith("path", "42"),
        recordWith("isFavorite", R"("true")"),
        recordWith("iconPath", "false"),
        recordWith("sortOrder", R"("1")"),
        recordWith("sortOrder", "1.5"),
        recordWith("sortOrder", "9223372036854775808"),
        recordWith("createdAt", R"("2025-03-04T18:07:41.250Z")"),
        recordWith("id", R"("3F2504E0-4F89-11D3-9A0C-0305E82C330")"),
        recordWith("id", R"("3F2504E0-4F89-11D3-9A0C-0305E82C330G")"),
        recordWith("name", "\"bad \xc3\x28 byte\""),
        recordWith("name", R"("\ud83d")"),
        recordWith("name", R"("\ude80")"),
        recordWith("name", R"("\ud83d\u0041")"),
        recordWith("name", R"("\ud83d\ue000")"),
        recordWith("name", "\"a\\/raw\t/tab\""),
        recordWith("name", "\"raw\ttab\""),
        recordWith("sortOrder", "01"),
        recordWith("isFavorite", "truex"),
        recordWith("isFavorite", ""),
        recordWith("colour", "1."),
        recordWith("colour", "-"),
        "42",
        "{",
        R"({"id"})",
    };
    for (const std::string& record : spoiledRecords)
        EXPECT_FALSE(ItemsJson::decode("[" + validRecord + "," + record + "]")) << record;
    for (const std::string& document : {
             validRecord,               // an object, not an array
             "[" + validRecord,         // cut short
             "[" + validRecord + ",]",  // trailing comma
             std::string("[\"\xff\"]"), // invalid UTF-8
             "[" + validRecord + "] x", // text after the array
             // a nested key without its colon or its value, whose '}' would close the record
             "[" + validRecord.substr(0, validRecord.size() - 1) + R"(,"colour":{"a"}])",
             "[" + validRecord.substr(0, validRecord.size() - 1) + R"(,"colour":{"a":}])",
         })
        EXPECT_FALSE(ItemsJson::decode(document)) << document;
    EXPECT_TRUE(ItemsJson::decode("[" + validRecord + "," + validRecord + "]"));
}

} // namespace
} // namespace tidewell
