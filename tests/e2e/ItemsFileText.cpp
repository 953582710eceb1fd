#include "e2e/ItemsFileText.h"

#include <cstdio>
#include <ctime>
#include <regex>
#include <stdexcept>

namespace tidewell::testing {
namespace {

std::string member(std::string_view key, const std::string& valueText) {
    return "    " + jsonQuoted(key) + " : " + valueText;
}

std::string recordText(const StoredItem& item) {
    std::vector<std::string> members = {member("createdAt", jsonQuoted(item.createdAt))};
    if (item.iconPath)
        members.push_back(member("iconPath", jsonQuoted(*item.iconPath)));
    members.push_back(member("id", jsonQuoted(item.id)));
    members.push_back(member("initials", jsonQuoted(item.initials)));
    members.push_back(member("isFavorite", item.isFavorite ? "true" : "false"));
    members.push_back(member("lastOpenedAt", jsonQuoted(item.lastOpenedAt)));
    members.push_back(member("launchCommand", jsonQuoted(item.launchCommand)));
    members.push_back(member("name", jsonQuoted(item.name)));
    members.push_back(member("path", jsonQuoted(item.path)));
    members.push_back(member("tintHex", jsonQuoted(item.tintHex)));
    std::string text = "  {\n";
    for (std::size_t index = 0; index < members.size(); ++index)
        text += (index == 0 ? "" : ",\n") + members[index];
    return text + "\n  }";
}

std::string internetDate(long long seconds) {
    const auto time = static_cast<std::time_t>(seconds);
    std::tm parts{};
    ::gmtime_r(&time, &parts);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
    return text;
}

} // namespace

std::string jsonQuoted(std::string_view text) {
    return "\"" + jsonEscaped(text) + "\"";
}

std::string jsonEscaped(std::string_view text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '/':
            out += "\\/";
            break;
        case '\b':
            out += "\\b";
            break;
        case '\f':
            out += "\\f";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                char escape[8];
                std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
                out += escape;
            } else {
                out += c;
            }
        }
    }
    return out;
}

std::string itemsFileText(const std::vector<StoredItem>& items) {
    std::string out = "[\n";
    for (std::size_t index = 0; index < items.size(); ++index)
        out += (index == 0 ? "" : ",\n") + recordText(items[index]);
    return out + "\n]";
}

std::vector<std::string> stringValues(const std::string& fileText, std::string_view key) {
    const std::regex member("\"" + std::string(key) + "\" : \"([^\"]*)\"");
    std::vector<std::string> values;
    for (auto match = std::sregex_iterator(fileText.begin(), fileText.end(), member);
         match != std::sregex_iterator(); ++match)
        values.push_back((*match)[1]);
    return values;
}

long long epochSeconds(const std::string& date) {
    std::tm parts{};
    char zone = 0;
    if (std::sscanf(date.c_str(), "%4d-%2d-%2dT%2d:%2d:%2d%c", &parts.tm_year, &parts.tm_mon,
                    &parts.tm_mday, &parts.tm_hour, &parts.tm_min, &parts.tm_sec, &zone) != 7 ||
        zone != 'Z')
        throw std::invalid_argument("not a UTC date-time: " + date);
    parts.tm_year -= 1900;
    parts.tm_mon -= 1;
    return ::timegm(&parts);
}

StoredItem generatedItem(std::size_t index) {
    constexpr long long start = 1704067200; // 2024-01-01T00:00:00Z
    char number[16];
    std::snprintf(number, sizeof number, "%05zu", index);
    char id[40];
    std::snprintf(id, sizeof id, "6F1C2A7E-0000-4000-8000-%012zX", index);
    const std::string name = std::string("project-") + number;
    return {.createdAt = internetDate(start + static_cast<long long>(index)),
            .iconPath = "/home/someone/.local/share/Tidewell/Icons/" + std::string(id) + ".png",
            .id = id,
            .initials = "PR",
            .isFavorite = index % 3 == 0,
            .lastOpenedAt = internetDate(start + 100000 + static_cast<long long>(index)),
            .launchCommand = "npm run dev -- --port 3000 --host 127.0.0.1",
            .name = name,
            .path = "/home/someone/work/clients/acme-corporation/repositories/" + name,
            .tintHex = "#5E7CE2"};
}

} // namespace tidewell::testing
