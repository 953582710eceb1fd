#include "core/login/PropertyList.h"

namespace tidewell::PropertyList {
namespace {

std::string escaped(const std::string& text) {
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        switch (c) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        default:
            result += c;
        }
    }
    return result;
}

std::string stringElement(const std::string& text, const std::string& indent) {
    return indent + "<string>" + escaped(text) + "</string>\n";
}

std::string valueElements(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return stringElement(*text, "\t");
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? "\t<true/>\n" : "\t<false/>\n";
    const auto& items = std::get<std::vector<std::string>>(value);
    std::string result = "\t<array>\n";
    for (const std::string& item : items)
        result += stringElement(item, "\t\t");
    return result + "\t</array>\n";
}

} // namespace

std::string xml(const Dictionary& dictionary) {
    std::string result = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                         "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                         "<plist version=\"1.0\">\n"
                         "<dict>\n";
    for (const auto& [key, value] : dictionary)
        result += "\t<key>" + escaped(key) + "</key>\n" + valueElements(value);
    return result + "</dict>\n</plist>\n";
}

} // namespace tidewell::PropertyList
